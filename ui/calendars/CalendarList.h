// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/calendars/CalendarRow.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace quorvane {

/// The calendars of one account. Rows change in place.
class CalendarList final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to an AccountList")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        Id = Qt::UserRole,
        Name,
        /// The name, with the account where the heading does not say it.
        FullName,
        Color,
        Turn,
        IsRead,
    };

    // Without a default, or a QML engine could make one.
    explicit CalendarList(QObject *parent)
        : QAbstractListModel(parent)
    {
    }

    [[nodiscard]] int count() const { return static_cast<int>(m_rows.size()); }
    void show(const std::vector<CalendarRow> &rows);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // For `changeRows`.
    [[nodiscard]] const std::vector<CalendarRow> &rows() const { return m_rows; }
    void takeOut(int place);
    void insert(int place, const CalendarRow &row);
    void bringForward(int from, int to);
    void replace(int place, const CalendarRow &row);

Q_SIGNALS:
    void countChanged();

private:
    std::vector<CalendarRow> m_rows;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/calendars/CalendarAccount.h"
#include "ui/calendars/CalendarList.h"

#include <QAbstractListModel>
#include <QtQml/qqmlregistration.h>

#include <memory>
#include <vector>

namespace quorvane {

/// The accounts and how they are doing, each with the list of its calendars. Rows change in place.
class AccountList final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a CalendarChoices")
    Q_PROPERTY(int count READ count NOTIFY countChanged)

public:
    enum Role {
        Name = Qt::UserRole,
        StateText,
        State,
        /// The folder that can be disconnected; empty where there is none.
        Folder,
        /// What the source itself says of how it stands.
        Message,
        Calendars,
    };

    enum class Mood { good, waiting, failing };
    Q_ENUM(Mood)

    struct Row
    {
        SourceHealth health;
        QString stateText;
        QString message;
        std::shared_ptr<CalendarList> calendars;

        [[nodiscard]] QString key() const { return CalendarAccount::keyOf(health); }
        bool operator==(const Row &) const = default;
    };

    // Without a default, or a QML engine could make one.
    explicit AccountList(QObject *parent)
        : QAbstractListModel(parent)
    {
    }

    [[nodiscard]] int count() const { return static_cast<int>(m_rows.size()); }
    /// `fantasticalMessage` is what the second source says of itself; `now` is Unix time in seconds.
    void show(const std::vector<CalendarAccount> &accounts, const QString &fantasticalMessage, double now);
    /// Tells anew how long ago things were.
    void followTime(double now);

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // For `changeRows`.
    [[nodiscard]] const std::vector<Row> &rows() const { return m_rows; }
    void takeOut(int place);
    void insert(int place, const Row &row);
    void bringForward(int from, int to);
    void replace(int place, const Row &row);

Q_SIGNALS:
    void countChanged();

private:
    [[nodiscard]] std::shared_ptr<CalendarList> calendarsOf(const QString &key) const;

    std::vector<Row> m_rows;
};

} // namespace quorvane

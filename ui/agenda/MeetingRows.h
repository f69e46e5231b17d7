// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/AgendaRows.h"
#include "ui/agenda/RowUpdate.h"

#include <QAbstractListModel>

#include <optional>

namespace quorvane {

class AppModel;

/// The agenda's meetings by day. Rows change in place, so that whoever looks at or works on one keeps it.
class MeetingRows final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with a model")
    Q_PROPERTY(int count READ count NOTIFY countChanged)
    Q_PROPERTY(QString widestTimes READ widestTimes CONSTANT)

public:
    /// The one role: the `MeetingRow`.
    static constexpr int rowRole = Qt::UserRole;

    /// `model` must outlive this.
    explicit MeetingRows(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] int count() const { return static_cast<int>(m_rows.size()); }
    /// `index` must be one of the rows.
    [[nodiscard]] const MeetingRow &at(int index) const { return m_rows[static_cast<std::size_t>(index)]; }

    /// No row's `times` is wider.
    [[nodiscard]] static QString widestTimes();

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

    // An identifier that is not in the list any more does nothing.
    Q_INVOKABLE void join(const QString &id);
    Q_INVOKABLE void toggleAlert(const QString &id);
    /// Deleting takes two steps, so that nothing is lost by a slip.
    Q_INVOKABLE void askToDelete(const QString &id);
    Q_INVOKABLE void keep();
    Q_INVOKABLE void deleteAsked();

Q_SIGNALS:
    void countChanged();

private:
    void read();
    void follow();
    void show();
    void take(std::vector<MeetingRow> rows);
    void apply(const RowStep &step, const std::vector<MeetingRow> &rows);
    [[nodiscard]] std::optional<Meeting> meeting(const QString &id) const;

    AppModel &m_model;
    AgendaContent m_content;
    std::vector<MeetingRow> m_rows;
    /// Between these Unix times the rows hold by themselves, in the zone with this distance from UTC.
    double m_validFrom = 0;
    double m_validUntil = 0;
    int m_zone = 0;
};

} // namespace quorvane

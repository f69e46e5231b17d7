// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/MeetingRows.h"

#include "async/Launch.h"
#include "model/AppModel.h"
#include "ui/format/MeetingFormat.h"

#include <QDateTime>

#include <algorithm>

namespace quorvane {

namespace {

QStringList keys(const std::vector<MeetingRow> &rows)
{
    QStringList result;
    result.reserve(static_cast<qsizetype>(rows.size()));
    for (const MeetingRow &row : rows)
        result.append(row.meeting.id);
    return result;
}

int zoneAt(double time)
{
    return QDateTime::fromSecsSinceEpoch(static_cast<qint64>(time)).offsetFromUtc();
}

} // namespace

MeetingRows::MeetingRows(AppModel &model, QObject *parent)
    : QAbstractListModel(parent)
    , m_model(model)
{
    connect(&model, &AppModel::meetingsChanged, this, &MeetingRows::read);
    connect(&model, &AppModel::calendarsChanged, this, &MeetingRows::read);
    connect(&model, &AppModel::ticked, this, &MeetingRows::follow);
    read();
}

QString MeetingRows::widestTimes()
{
    const QDateTime late(QDate(2000, 1, 1), QTime(22, 48));
    const auto time = static_cast<double>(late.toSecsSinceEpoch());
    return MeetingFormat::timeRange({.start = time, .end = time});
}

int MeetingRows::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() ? 0 : count();
}

QVariant MeetingRows::data(const QModelIndex &index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != rowRole)
        return {};
    return QVariant::fromValue(at(index.row()));
}

QHash<int, QByteArray> MeetingRows::roleNames() const
{
    return {{rowRole, QByteArrayLiteral("row")}};
}

void MeetingRows::read()
{
    m_content.events = m_model.calendarEvents();
    m_content.alerting.clear();
    for (const Meeting &meeting : m_model.scheduledMeetings())
        m_content.alerting.insert(meeting.id);
    m_content.dots = CalendarDots(m_model.calendars(), m_model.fantasticalCalendars());
    show();
}

// The clock may have been set back, and the machine carried into another zone.
void MeetingRows::follow()
{
    const double now = m_model.now();
    if (now < m_validFrom || now >= m_validUntil || zoneAt(now) != m_zone)
        show();
}

void MeetingRows::show()
{
    const double now = m_model.now();
    const int zone = zoneAt(now);
    const std::vector<MeetingRow> none;
    std::vector<MeetingRow> rows = AgendaRows::of(m_content, now, zone == m_zone ? m_rows : none);
    m_validFrom = now;
    m_validUntil = AgendaRows::validUntil(rows, now);
    m_zone = zone;
    take(std::move(rows));
}

void MeetingRows::take(std::vector<MeetingRow> rows)
{
    const auto countBefore = m_rows.size();
    for (const RowStep &step : RowUpdate::plan(keys(m_rows), keys(rows)))
        apply(step, rows);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (m_rows[row] == rows[row])
            continue;
        m_rows[row] = std::move(rows[row]);
        const QModelIndex changed = index(static_cast<int>(row));
        Q_EMIT dataChanged(changed, changed, {rowRole});
    }
    if (m_rows.size() != countBefore)
        Q_EMIT countChanged();
}

void MeetingRows::apply(const RowStep &step, const std::vector<MeetingRow> &rows)
{
    const auto first = m_rows.begin() + step.first;
    const int last = step.first + step.count - 1;
    switch (step.kind) {
    case RowStep::Kind::remove:
        beginRemoveRows({}, step.first, last);
        m_rows.erase(first, first + step.count);
        endRemoveRows();
        break;
    case RowStep::Kind::move:
        beginMoveRows({}, step.first, step.first, {}, step.to > step.first ? step.to + 1 : step.to);
        if (step.to > step.first)
            std::rotate(first, first + 1, m_rows.begin() + step.to + 1);
        else
            std::rotate(m_rows.begin() + step.to, first, first + 1);
        endMoveRows();
        break;
    case RowStep::Kind::insert:
        beginInsertRows({}, step.first, last);
        m_rows.insert(first, rows.begin() + step.first, rows.begin() + last + 1);
        endInsertRows();
        break;
    }
}

std::optional<Meeting> MeetingRows::meeting(const QString &id) const
{
    const auto found = std::ranges::find(m_rows, id, &MeetingRow::id);
    if (found == m_rows.end())
        return std::nullopt;
    return found->meeting;
}

void MeetingRows::join(const QString &id)
{
    if (const auto found = meeting(id))
        m_model.join(*found);
}

void MeetingRows::toggleAlert(const QString &id)
{
    if (const auto found = meeting(id))
        launch(m_model.setScheduled(*found, m_model.isScheduled(*found) ? Switch::off : Switch::on));
}

void MeetingRows::askToDelete(const QString &id)
{
    m_content.askedToDelete = id;
    show();
}

void MeetingRows::keep()
{
    askToDelete({});
}

void MeetingRows::deleteAsked()
{
    const auto found = meeting(m_content.askedToDelete);
    keep();
    if (found)
        launch(m_model.deleteManualMeeting(*found));
}

} // namespace quorvane

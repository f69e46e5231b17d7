// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// One meeting as the agenda lists it.
struct MeetingRow
{
    Q_GADGET
    QML_VALUE_TYPE(meetingRow)
    Q_PROPERTY(QString id READ id)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString calendar MEMBER calendar)
    Q_PROPERTY(QString dayTitle MEMBER dayTitle)
    Q_PROPERTY(QString dayDate MEMBER dayDate)
    Q_PROPERTY(QString times MEMBER times)
    Q_PROPERTY(QString start MEMBER start)
    Q_PROPERTY(QString duration MEMBER duration)
    Q_PROPERTY(QString spoken MEMBER spoken)
    Q_PROPERTY(QString dotColor MEMBER dotColor)
    Q_PROPERTY(int dotTurn MEMBER dotTurn)
    Q_PROPERTY(bool isFirstOfDay MEMBER isFirstOfDay)
    Q_PROPERTY(bool isLastOfDay MEMBER isLastOfDay)
    Q_PROPERTY(bool isNow MEMBER isNow)
    Q_PROPERTY(bool alerts MEMBER alerts)
    Q_PROPERTY(bool canJoin MEMBER canJoin)
    Q_PROPERTY(bool canDelete MEMBER canDelete)
    Q_PROPERTY(bool asksDelete MEMBER asksDelete)

public:
    [[nodiscard]] const QString &id() const { return meeting.id; }

    bool operator==(const MeetingRow &) const = default;

    Meeting meeting;
    /// The meeting's, each on one line.
    QString title;
    QString calendar;
    /// "Today" or a weekday, and the date beside it.
    QString dayTitle;
    QString dayDate;
    QString times;
    /// The start as a clock time.
    QString start;
    QString duration;
    /// All of it, for a screen reader.
    QString spoken;
    /// The calendar's own colour ("#rrggbb"), or its turn among the theme's.
    QString dotColor;
    int dotTurn = 0;
    bool isFirstOfDay = false;
    bool isLastOfDay = false;
    /// It has begun and has not ended.
    bool isNow = false;
    bool alerts = false;
    bool canJoin = false;
    /// It was added by hand.
    bool canDelete = false;
    /// The user has asked to delete it and has not said yet whether really.
    bool asksDelete = false;
};

} // namespace quorvane

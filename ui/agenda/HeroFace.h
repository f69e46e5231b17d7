// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// What the agenda's hero shows of the next meeting.
struct HeroFace
{
    Q_GADGET
    QML_VALUE_TYPE(heroFace)
    Q_PROPERTY(bool exists MEMBER exists)
    Q_PROPERTY(bool isLit MEMBER isLit)
    Q_PROPERTY(bool isStarted MEMBER isStarted)
    Q_PROPERTY(bool isPaused MEMBER isPaused)
    Q_PROPERTY(bool alerts MEMBER alerts)
    Q_PROPERTY(bool canJoin MEMBER canJoin)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString calendar MEMBER calendar)
    Q_PROPERTY(QString dotColor MEMBER dotColor)
    Q_PROPERTY(int dotTurn MEMBER dotTurn)
    Q_PROPERTY(QString times MEMBER times)
    Q_PROPERTY(QString start MEMBER start)
    Q_PROPERTY(QString countdown MEMBER countdown)
    Q_PROPERTY(QString chip MEMBER chip)
    Q_PROPERTY(QString spoken MEMBER spoken)
    Q_PROPERTY(QString dialTime MEMBER dialTime)
    Q_PROPERTY(double vane MEMBER vane)
    Q_PROPERTY(double sweep MEMBER sweep)

public:
    bool operator==(const HeroFace &) const = default;

    /// There is a meeting to show.
    bool exists = false;
    /// An alert will come up for it as things stand.
    bool isLit = false;
    bool isStarted = false;
    bool isPaused = false;
    bool alerts = false;
    bool canJoin = false;
    QString title;
    QString calendar;
    /// The calendar's own colour ("#rrggbb"), or its turn among the theme's.
    QString dotColor;
    int dotTurn = 0;
    QString times;
    /// The start as a clock time.
    QString start;
    QString countdown;
    /// Why it is not lit; empty while it is.
    QString chip;
    /// All of it, for a screen reader.
    QString spoken;
    /// The start as the dial's digits.
    QString dialTime;
    /// The minute hand and, from it on, the way to the start, in degrees clockwise; no way (0) when the start
    /// is more than an hour off or past.
    double vane = 0;
    double sweep = 0;
};

} // namespace quorvane

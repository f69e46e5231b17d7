// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// What the agenda shows where its list would be.
struct EmptyFace
{
    Q_GADGET
    QML_VALUE_TYPE(emptyFace)
    Q_PROPERTY(bool isShown MEMBER isShown)
    Q_PROPERTY(int step MEMBER step)
    Q_PROPERTY(QString title MEMBER title)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString calendarStep MEMBER calendarStep)
    Q_PROPERTY(QString meetingStep MEMBER meetingStep)
    Q_PROPERTY(bool isCalendarDone MEMBER isCalendarDone)
    Q_PROPERTY(bool isMeetingDone MEMBER isMeetingDone)
    Q_PROPERTY(bool offersConnect MEMBER offersConnect)
    Q_PROPERTY(bool offersAdd MEMBER offersAdd)
    Q_PROPERTY(bool offersPreview MEMBER offersPreview)
    Q_PROPERTY(bool offersList MEMBER offersList)

public:
    bool operator==(const EmptyFace &) const = default;

    /// It takes the list's place.
    bool isShown = false;
    /// The first step that the user has not taken, from 1 to 3; 0 where no steps are shown.
    int step = 0;
    QString title;
    QString text;
    /// The steps, or what came of them.
    QString calendarStep;
    QString meetingStep;
    bool isCalendarDone = false;
    bool isMeetingDone = false;
    /// The buttons. The first of them, in this order from the step on, is the one to press.
    bool offersConnect = false;
    bool offersAdd = false;
    bool offersPreview = false;
    bool offersList = false;
};

} // namespace quorvane

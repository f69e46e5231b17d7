// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Calendars
import Quorvane.Components

/// An account with its calendars.
Item {
    id: part

    required property string name
    required property string stateText
    required property int mood
    required property string folder
    required property string message
    required property CalendarList calendars
    required property CalendarChoices calendarChoices

    implicitHeight: card.visible ? card.y + card.height : head.height

    AccountHead {
        id: head

        width: parent.width
        name: part.name
        stateText: part.stateText
        mood: part.mood
        folder: part.folder
        message: part.message
        calendarChoices: part.calendarChoices
    }

    Card {
        id: card

        y: head.height + 5
        visible: part.calendars.count > 0
        width: parent.width
        height: rows.height
        padding: 0

        CalendarRows {
            id: rows

            width: card.width
            calendars: part.calendars
            onSwitched: id => part.calendarChoices.switchCalendar(id)
        }
    }
}

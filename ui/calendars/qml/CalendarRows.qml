// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma ComponentBehavior: Bound

import QtQuick
import Quorvane.Calendars

/// The calendars of an account, in two columns where there is room.
Item {
    id: rows

    required property CalendarList calendars

    readonly property int columns: width < 640 ? 1 : 2
    readonly property int lines: Math.ceil(calendars.count / columns)
    readonly property int rowHeight: 50

    signal switched(string id)

    function takeFocus(place: int) {
        const row = repeater.itemAt(place) as CalendarSwitch;
        if (row)
            row.takeFocus();
    }

    implicitHeight: lines * rowHeight

    Repeater {
        id: repeater

        model: rows.calendars

        CalendarSwitch {
            id: row

            x: index % rows.columns * width
            y: Math.floor(index / rows.columns) * rows.rowHeight
            width: rows.width / rows.columns
            height: rows.rowHeight
            hasLineAbove: index >= rows.columns
            hasLineBefore: index % rows.columns > 0
            onSwitched: rows.switched(calendarId)
            Keys.onUpPressed: rows.takeFocus(index - rows.columns)
            Keys.onDownPressed: rows.takeFocus(index + rows.columns)
        }
    }
}

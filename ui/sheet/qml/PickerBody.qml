// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Sheet

/// A month's days and the time of day. Return keeps what is chosen, Escape goes back to what it was.
FocusScope {
    id: body

    required property DateTimeChoice choice

    signal done

    function begin() {
        grid.forceActiveFocus(Qt.TabFocusReason);
    }

    implicitWidth: grid.implicitWidth
    implicitHeight: time.y + time.height
    focus: true
    Accessible.role: Accessible.Grouping
    Accessible.name: qsTr("Date and time")
    Keys.onReturnPressed: done()
    Keys.onEnterPressed: done()
    Keys.onEscapePressed: {
        choice.revert();
        done();
    }

    MonthHeader {
        id: header

        width: parent.width
        choice: body.choice
    }

    MonthGrid {
        id: grid

        y: header.height + 6
        focus: true
        choice: body.choice
    }

    Separator {
        id: line

        y: grid.y + grid.height + 12
        width: parent.width
    }

    TimeRow {
        id: time

        y: line.y + 13
        width: parent.width
        choice: body.choice
        onDone: body.done()
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// What is behind the text of a field.
Item {
    id: frame

    property bool focused: false
    property bool wrong: false

    Rectangle {
        anchors.fill: parent
        anchors.margins: -3
        visible: frame.focused && !frame.wrong
        radius: 14
        color: Theme.fieldHalo
    }

    Rectangle {
        anchors.fill: parent
        radius: 11
        color: Theme.field
    }

    RoundedFrame {
        anchors.fill: parent
        radius: 11
        lineWidth: frame.focused || frame.wrong ? 1.5 : 1
        outline: frame.wrong ? Theme.warn : frame.focused ? Theme.accentText
            : enabled ? Theme.fieldLine : Theme.line
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// One day of a month.
T.RadioButton {
    id: cell

    required property int index
    required property string number
    required property string name
    required property bool selectable
    required property bool today
    required property bool chosen
    required property bool inMonth

    objectName: "day"
    enabled: selectable
    checkable: false
    autoExclusive: false
    hoverEnabled: true
    focusPolicy: Qt.NoFocus
    Accessible.checkable: true
    Accessible.checked: chosen
    Accessible.name: name
    Accessible.description: today ? qsTr("Today") : ""

    background: Item {
        Rectangle {
            anchors.centerIn: parent
            width: 36
            height: 32
            radius: 16
            color: cell.chosen ? Theme.accent : cell.hovered && cell.selectable ? Theme.hover
                : Theme.faded(Theme.hover, 0)
            border.width: cell.today && !cell.chosen ? 1 : 0
            border.color: Theme.lineStrong
        }

        RoundedFrame {
            anchors.centerIn: parent
            visible: cell.activeFocus
            width: 42
            height: 38
            radius: 19
            outline: Theme.focus
            lineWidth: 2
        }
    }

    contentItem: Label {
        horizontalAlignment: Text.AlignHCenter
        verticalAlignment: Text.AlignVCenter
        style: cell.chosen || cell.today ? Label.Strong : Label.Body
        text: cell.number
        color: cell.chosen ? Theme.accentInk : !cell.selectable ? Theme.text3 : cell.today ? Theme.accentText
            : Theme.text
        opacity: cell.selectable || cell.chosen ? 1 : 0.5
        Accessible.ignored: true
    }
}

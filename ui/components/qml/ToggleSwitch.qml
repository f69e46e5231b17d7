// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// On or off, told by side and size as well as by colour. It shows `checked` and asks for the other by `toggled`; what
/// becomes of it is for its owner to say.
PressControl {
    id: toggle

    property bool checked: false
    property color outline: Theme.switchOff
    property color knobOff: Theme.switchKnob
    /// How far the knob has gone from off (0) to on (1).
    property real travel: checked ? 1 : 0

    signal toggled(bool checked)

    implicitWidth: 36
    implicitHeight: 32
    opacity: enabled ? 1 : 0.45

    Accessible.role: Accessible.CheckBox
    Accessible.checkable: true
    Accessible.checked: checked
    Accessible.onToggleAction: click()

    onClicked: toggled(!checked)

    Behavior on travel {
        enabled: !Theme.reduceMotion
        NumberAnimation {
            duration: 140
            easing.type: Easing.OutCubic
        }
    }

    Item {
        anchors.centerIn: parent
        width: 36
        height: 22

        Capsule {
            anchors.fill: parent
            fill: Theme.faded(Theme.accent, toggle.travel)
            outline: Theme.faded(toggle.outline, 1 - toggle.travel)
            lineWidth: toggle.travel < 1 ? 1.5 : 0
        }

        Rectangle {
            readonly property real side: 12 + 4 * toggle.travel

            x: 11 - side / 2 + 14 * toggle.travel
            y: 11 - side / 2
            width: side
            height: side
            radius: side / 2
            color: Theme.mixed(toggle.knobOff, Theme.accentInk, toggle.travel)
        }

        FocusRing {
            visible: toggle.showsFocus
        }
    }
}

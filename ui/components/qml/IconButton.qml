// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A button of one icon; its name is in its tooltip.
PressControl {
    id: button

    /// One of `Icons`.
    required property string icon
    /// Whether it stands on a tile of its own.
    property bool raised: false
    /// Whether the tile is in the accent's colour.
    property bool tinted: false

    property color ink: tinted ? Theme.accentText : raised ? Theme.text : Theme.text2
    readonly property color restFill: tinted ? Theme.faded(Theme.accent, 0.16) : raised ? Theme.raised
        : Theme.faded(Theme.raised, 0)
    readonly property color hoverFill: tinted ? Theme.faded(Theme.accent, 0.26) : raised ? Theme.hover : Theme.raised

    implicitWidth: 32
    implicitHeight: 32
    opacity: showsPress ? 0.8 : 1
    scale: showsPress && !Theme.reduceMotion ? 0.98 : 1

    Behavior on opacity {
        NumberAnimation { duration: 90 }
    }
    Behavior on scale {
        NumberAnimation { duration: 90 }
    }

    Rectangle {
        anchors.fill: parent
        radius: 10
        color: button.enabled ? Theme.mixed(button.restFill, button.hoverFill, button.hoverShare) : button.restFill
    }

    LineIcon {
        anchors.centerIn: parent
        width: 18
        height: 18
        outline: button.icon
        color: button.enabled ? button.ink : Theme.text3
    }

    FocusRing {
        visible: button.showsFocus
        targetRadius: 10
        outset: 3
    }

    ToolTipText {
        target: button
        text: button.name
        wanted: button.hovered || button.visualFocus
    }
}

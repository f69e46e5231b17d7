// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A capsule with words. `ink`, `fill`, `hoverFill` and `outline` may be set where it lies on something else than a
/// card or the canvas.
PressControl {
    id: button

    enum Kind {
        Primary,
        Secondary,
        Quiet,
        Danger,
        Plain
    }
    enum Size {
        Compact,
        Regular,
        Heading,
        Prominent
    }

    required property string text
    /// One of `Icons`, or none.
    property string icon: ""
    property int kind: ActionButton.Secondary
    property int size: ActionButton.Regular

    property color ink: kind === ActionButton.Primary ? Theme.accentInk : kind === ActionButton.Danger ? Theme.danger
        : kind === ActionButton.Plain ? Theme.text2 : Theme.text
    property color fill: kind === ActionButton.Primary ? Theme.accent : kind === ActionButton.Secondary ? Theme.raised
        : Theme.faded(Theme.raised, 0)
    property color hoverFill: kind === ActionButton.Primary ? Qt.lighter(Theme.accent, 1.08)
        : kind === ActionButton.Secondary ? Theme.hover : Theme.raised
    property color outline: kind === ActionButton.Secondary ? Theme.line : kind === ActionButton.Quiet
        ? Theme.lineStrong : kind === ActionButton.Danger ? Theme.faded(Theme.danger, 0.40) : "transparent"

    readonly property int sidePadding: isSmall ? 13 : isProminent ? 26 : 17
    readonly property bool isSmall: size === ActionButton.Compact
    readonly property bool isProminent: size === ActionButton.Prominent

    name: text
    implicitWidth: content.implicitWidth + 2 * sidePadding
    implicitHeight: isSmall ? 32 : isProminent ? 46 : size === ActionButton.Heading ? 38 : 36
    opacity: showsPress ? 0.8 : 1
    scale: showsPress && !Theme.reduceMotion ? 0.98 : 1

    Behavior on opacity {
        NumberAnimation { duration: 90 }
    }
    Behavior on scale {
        NumberAnimation { duration: 90 }
    }

    Capsule {
        anchors.fill: parent
        fill: button.enabled ? Theme.mixed(button.fill, button.hoverFill, button.hoverShare)
            : button.kind === ActionButton.Plain ? "transparent" : Theme.raised
        outline: button.enabled ? button.outline : "transparent"
        lineWidth: outline.a > 0 ? 1 : 0
    }

    ButtonContent {
        id: content

        anchors.fill: parent
        anchors.leftMargin: button.sidePadding
        anchors.rightMargin: button.sidePadding
        text: button.text
        icon: button.icon
        iconSide: button.isSmall ? 15 : button.isProminent ? 20 : 17
        fontSize: button.isSmall ? 13 : button.isProminent ? 16 : 14
        ink: button.enabled ? button.ink : Theme.text3
    }

    FocusRing {
        visible: button.showsFocus
    }
}

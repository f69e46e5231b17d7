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

    readonly property bool isSmall: size === ActionButton.Compact
    readonly property bool isProminent: size === ActionButton.Prominent
    readonly property int iconSide: isSmall ? 15 : isProminent ? 20 : 17
    readonly property int iconRoom: icon === "" ? 0 : iconSide + content.spacing
    readonly property color shownInk: enabled ? ink : Theme.text3

    name: text
    leftPadding: isSmall ? 13 : isProminent ? 26 : 17
    rightPadding: leftPadding
    implicitWidth: leftPadding + iconRoom + Math.ceil(words.implicitWidth) + rightPadding
    implicitHeight: isSmall ? 32 : isProminent ? 46 : size === ActionButton.Heading ? 38 : 36
    opacity: showsPress ? 0.8 : 1
    scale: showsPress && !Theme.reduceMotion ? 0.98 : 1

    Behavior on opacity {
        NumberAnimation { duration: 90 }
    }
    Behavior on scale {
        NumberAnimation { duration: 90 }
    }

    background: Capsule {
        fill: button.enabled ? Theme.mixed(button.fill, button.hoverFill, button.hoverShare)
            : button.kind === ActionButton.Plain ? "transparent" : Theme.raised
        outline: button.enabled ? button.outline : "transparent"
        lineWidth: outline.a > 0 ? 1 : 0
    }

    contentItem: Item {
        Row {
            id: content

            anchors.centerIn: parent
            spacing: 8

            LineIcon {
                anchors.verticalCenter: parent.verticalCenter
                visible: button.icon !== ""
                width: button.iconSide
                height: button.iconSide
                outline: button.icon
                color: button.shownInk
            }

            Label {
                id: words

                anchors.verticalCenter: parent.verticalCenter
                width: Math.min(Math.ceil(implicitWidth), button.availableWidth - button.iconRoom)
                style: button.isSmall ? Label.SmallStrong : Label.Strong
                font.pixelSize: button.isSmall ? 13 : button.isProminent ? 16 : 14
                text: button.text
                color: button.shownInk
                Accessible.ignored: true
            }
        }
    }

    FocusRing {
        visible: button.showsFocus
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// A short text beside its `target` while it is `wanted`, after a moment. Made only when it is.
Loader {
    id: tip

    property Item target: parent as Item
    required property string text
    property bool wanted: false

    active: wanted && text !== ""

    sourceComponent: T.ToolTip {
        id: popup

        parent: tip.target
        text: tip.text
        x: tip.target ? Math.round((tip.target.width - implicitWidth) / 2) : 0
        y: (tip.target ? tip.target.height : 0) + 6
        margins: 6
        leftPadding: 10
        rightPadding: 10
        topPadding: 6
        bottomPadding: 7
        implicitWidth: Math.min(320, Math.ceil(words.implicitWidth) + leftPadding + rightPadding)
        implicitHeight: words.height + topPadding + bottomPadding
        delay: 600
        visible: tip.wanted
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

        enter: Transition {
            NumberAnimation {
                property: "opacity"
                from: 0
                to: 1
                duration: 120
            }
        }

        contentItem: Item {
            Label {
                id: words

                width: Math.min(implicitWidth, popup.implicitWidth - popup.leftPadding - popup.rightPadding)
                style: Label.Small
                text: tip.text
                wrapMode: Text.Wrap
            }
        }

        background: Rectangle {
            radius: 10
            color: Theme.hover
            border.width: 1
            border.color: Theme.lineStrong
        }
    }
}

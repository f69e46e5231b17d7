// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// What a `ToolTipText` shows.
T.ToolTip {
    id: bubble

    required property ToolTipText tip

    parent: tip.target
    text: tip.text
    x: parent ? Math.round((parent.width - width) / 2) : 0
    y: (parent ? parent.height : 0) + 6
    margins: 6
    leftPadding: 10
    rightPadding: 10
    topPadding: 6
    bottomPadding: 7
    implicitWidth: Math.min(320, Math.ceil(implicitContentWidth) + leftPadding + rightPadding)
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    delay: 600
    visible: tip.isDue
    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent

    enter: Transition {
        NumberAnimation {
            property: "opacity"
            from: 0
            to: 1
            duration: 120
        }
    }

    contentItem: Label {
        style: Label.Small
        text: bubble.text
        wrapMode: Text.Wrap
    }

    background: Rectangle {
        radius: 10
        color: Theme.hover
        border.width: 1
        border.color: Theme.lineStrong
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Components

/// One source of calendars and how it is doing.
Item {
    id: item

    required property sourceRow source

    width: parent ? parent.width : 0
    implicitHeight: 42

    Accessible.role: Accessible.StaticText
    Accessible.name: source.spoken
    Accessible.description: source.detail

    HoverHandler {
        id: pointer
    }

    ToolTipText {
        target: item
        text: item.source.detail !== "" ? item.source.detail : name.truncated ? item.source.name : ""
        wanted: pointer.hovered
    }

    Label {
        id: name

        y: 10 - height / 2
        width: parent.width
        style: Label.Strong
        text: item.source.name
    }

    StateDot {
        id: dot

        anchors.verticalCenter: words.verticalCenter
        color: item.source.isFailing ? Theme.warn : item.source.isUpToDate ? Theme.ok : Theme.text3
    }

    Label {
        id: words

        anchors.left: dot.right
        anchors.leftMargin: 7
        anchors.right: ago.left
        anchors.rightMargin: 8
        y: 32 - height / 2
        style: item.source.isFailing ? Label.SmallStrong : Label.Small
        text: item.source.state
        color: item.source.isFailing ? Theme.warn : Theme.text2
    }

    Label {
        id: ago

        anchors.right: parent.right
        anchors.verticalCenter: words.verticalCenter
        style: Label.Small
        text: item.source.ago
        color: Theme.text3
    }
}

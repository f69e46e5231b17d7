// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// How much of something has come, as a bar and in percent.
Item {
    id: bar

    required property string name
    /// 0 to 1.
    required property real share

    readonly property int value: Math.floor(100 * Math.max(0, Math.min(1, share)))

    implicitHeight: 20
    Accessible.role: Accessible.ProgressBar
    // Qt 6.4 tells nobody the value of a progress bar.
    Accessible.name: qsTr("%1: %2").arg(name).arg(percent.text)

    Rectangle {
        id: track

        anchors.verticalCenter: parent.verticalCenter
        width: parent.width - widest.width - 10
        height: 8
        radius: 4
        color: Theme.raised
        border.width: 1
        border.color: Theme.fieldLine

        Rectangle {
            width: Math.round(Math.max(track.height, track.width * bar.value / 100))
            height: parent.height
            radius: parent.radius
            visible: bar.value > 0
            color: Theme.accentText
        }
    }

    TextMetrics {
        id: widest

        font: percent.font
        text: qsTr("%1%").arg(100)
    }

    Label {
        id: percent

        anchors.right: parent.right
        anchors.verticalCenter: parent.verticalCenter
        style: Label.SmallStrong
        text: qsTr("%1%").arg(bar.value)
        color: Theme.text2
        Accessible.ignored: true
    }
}

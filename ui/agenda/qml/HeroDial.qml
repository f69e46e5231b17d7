// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Components

/// The hour that leads to the next meeting, with the time of its start in the middle. The hero says it in words.
Item {
    id: dial

    required property heroFace face

    readonly property int side: 142
    readonly property int reach: 16

    implicitWidth: side
    implicitHeight: side
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true
    Accessible.ignored: true

    HourDial {
        x: -dial.reach
        y: -dial.reach
        width: dial.side + 2 * dial.reach
        height: width
        reach: dial.reach
        tint: dial.face.isLit ? (dial.face.isStarted ? Theme.ember : Theme.amber) : "#cdbeaa"
        vane: dial.face.vane
        sweep: dial.face.sweep
    }

    ClockDigits {
        anchors.centerIn: parent
        anchors.verticalCenterOffset: -6
        text: dial.face.dialTime
        fontSize: Math.round(0.19 * dial.side)
        widest: 0.62 * dial.side
        color: Theme.cream
    }

    Label {
        anchors.horizontalCenter: parent.horizontalCenter
        y: 79
        font.pixelSize: 12
        text: dial.face.isStarted ? qsTr("started") : qsTr("starts")
        color: Theme.faded(Theme.white, 0.55)
        Accessible.ignored: true
    }
}

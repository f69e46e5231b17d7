// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Alert
import Quorvane.Components

/// The countdown: clock and caption in a ring that empties over the last minute.
Item {
    id: dial

    required property Takeover takeover
    required property color tint
    /// Free space around the dial for bloom and ripples.
    required property real reach

    Accessible.role: Accessible.StaticText
    Accessible.name: takeover.dialLabel

    DialFace {
        anchors.fill: parent
        tint: dial.tint
        litTicks: dial.takeover.litTicks
    }

    DialRing {
        anchors.fill: parent
        anchors.margins: -dial.reach
        reach: dial.reach
        tint: dial.tint
        progress: dial.takeover.ringProgress
        ripplePhase: dial.takeover.ripplePhase
    }

    ClockDigits {
        id: clock

        x: (dial.width - implicitWidth) / 2
        y: Math.round(dial.height / 2 - 11 + 0.02 * fontSize - implicitHeight / 2)
        text: dial.takeover.clockText
        fontSize: Math.round(0.30 * dial.width)
        widest: 0.72 * dial.width
    }

    Text {
        id: caption

        objectName: "caption"
        anchors.horizontalCenter: parent.horizontalCenter
        y: Math.round(dial.height / 2 - 1.2 + 0.57 * clock.fontSize - height / 2)
        width: Math.min(implicitWidth, 0.72 * dial.width)
        text: dial.takeover.caption
        textFormat: Text.PlainText
        color: Theme.faded(Theme.white, 0.55)
        elide: Text.ElideRight
        font.family: Theme.textFace
        font.pixelSize: 15
        font.weight: Font.Medium
        transform: Translate { id: captionShift }
        Accessible.ignored: true
        onTextChanged: {
            if (dial.takeover.running && !dial.takeover.reduceMotion)
                settling.restart();
        }
    }

    // Half a second, hardly overshooting.
    SpringAnimation {
        id: settling

        target: captionShift
        property: "y"
        from: 8
        to: 0
        spring: 2.53
        damping: 0.34
        epsilon: 0.05
    }
}

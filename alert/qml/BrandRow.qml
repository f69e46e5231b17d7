// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// The mark and the name on top of the alert.
Row {
    id: brand

    required property color tint
    required property int markSide
    required property int fontSize

    // A brand is not mirrored.
    LayoutMirroring.enabled: false
    LayoutMirroring.childrenInherit: true

    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("Quorvane meeting alert")

    Mark {
        side: brand.markSide
        tint: brand.tint
        vane: Theme.cream
        track: Theme.faded(Theme.cream, 0.18)
    }

    Text {
        anchors.verticalCenter: parent.verticalCenter
        text: "QUORVANE"
        textFormat: Text.PlainText
        color: Theme.faded(Theme.cream, 0.86)
        font.family: Theme.textFace
        font.pixelSize: brand.fontSize
        font.weight: Font.Bold
        font.letterSpacing: 0.24 * brand.fontSize
        Accessible.ignored: true
    }
}

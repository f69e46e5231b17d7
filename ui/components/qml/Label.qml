// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// Text in one of the interface's styles. One line that elides, unless `wrapMode` says otherwise.
Text {
    id: label

    enum Style {
        Display,
        Heading,
        Title,
        CardHead,
        RowTitle,
        Body,
        Strong,
        Small,
        SmallStrong,
        Caption,
        Eyebrow
    }

    property int style: Label.Body

    readonly property var face: faceOf(style)

    function faceOf(style: int) : var {
        switch (style) {
        case Label.Display:
            return { size: 28, weight: Font.ExtraBold, tracking: -0.5 };
        case Label.Heading:
            return { size: 22, weight: Font.ExtraBold, tracking: -0.2 };
        case Label.Title:
            return { size: 20, weight: Font.Bold, tracking: -0.2 };
        case Label.CardHead:
            return { size: 15, weight: Font.Bold, tracking: 0 };
        case Label.RowTitle:
            return { size: 15, weight: Font.DemiBold, tracking: 0 };
        case Label.Strong:
            return { size: 14, weight: Font.DemiBold, tracking: 0 };
        case Label.Small:
            return { size: 13, weight: Font.Medium, tracking: 0 };
        case Label.SmallStrong:
            return { size: 13, weight: Font.DemiBold, tracking: 0 };
        case Label.Caption:
            return { size: 12, weight: Font.Bold, tracking: 0 };
        case Label.Eyebrow:
            return { size: 12, weight: Font.Bold, tracking: 1.4 };
        default:
            return { size: 14, weight: Font.Medium, tracking: 0 };
        }
    }

    Accessible.role: Accessible.StaticText
    Accessible.name: text

    textFormat: Text.PlainText
    color: Theme.text
    elide: Text.ElideRight
    maximumLineCount: wrapMode === Text.NoWrap ? 1 : undefined
    // Beside what it belongs to, whatever its script.
    horizontalAlignment: Text.AlignLeft
    font.family: Theme.textFace
    font.pixelSize: face.size
    font.weight: face.weight
    font.letterSpacing: face.tracking
    font.capitalization: style === Label.Eyebrow ? Font.AllUppercase : Font.MixedCase
}

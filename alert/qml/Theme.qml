// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma Singleton

import QtQuick

/// The takeover's fixed colours, type faces and icons. What urgency changes is the takeover's own `tint`.
QtObject {
    readonly property color night: "#12100d"
    readonly property color cream: "#f7f0e5"
    readonly property color white: "#ffffff"
    readonly property color ink: "#1e1305"

    readonly property string textFace: "Manrope"
    // A rounded face whose stems match the ring; in its absence the text face's boldest.
    readonly property string wantedClockFace: "National Park"
    readonly property bool hasClockFace: hasFamily(wantedClockFace)
    readonly property string clockFace: hasClockFace ? wantedClockFace : textFace
    // The clock face must be asked for at its heaviest, or its outlined style may be chosen.
    readonly property int clockWeight: hasClockFace ? Font.Black : Font.ExtraBold

    // Outlines on a grid of 240 by 240.
    readonly property string videoIcon: "M 55 60 h 70 a 30 30 0 0 1 30 30 v 60 a 30 30 0 0 1 -30 30 h -70 "
        + "a 30 30 0 0 1 -30 -30 v -60 a 30 30 0 0 1 30 -30 Z M 155 106 l 45.5 -27.5 a 9.5 9.5 0 0 1 14.5 8 v 67 "
        + "a 9.5 9.5 0 0 1 -14.5 8 L 155 134"
    readonly property string checkIcon: "M 50 126 l 46 46 L 190 74"
    readonly property string clockArrowIcon: "M 205 120 a 85 85 0 1 1 -23.5 -58.7 M 186 26 v 39 h -39 "
        + "M 120 76 V 120 l 31 20"

    function hasFamily(name: string) : bool {
        const families = Qt.fontFamilies();
        for (let index = 0; index < families.length; ++index) {
            if (families[index] === name)
                return true;
        }
        return false;
    }

    function faded(base: color, opacity: real) : color {
        return Qt.rgba(base.r, base.g, base.b, opacity);
    }
}

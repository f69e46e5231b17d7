// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma Singleton

import QtQuick
import Quorvane.Components

/// The colours by what they are for, and the type faces. Colours follow the engine's `Appearance`; those of the alert,
/// from `night` to `white`, are the same in light and dark.
QtObject {
    readonly property bool dark: Appearance.dark
    readonly property bool reduceMotion: Appearance.reduceMotion

    // Surfaces
    readonly property color canvas: tone("#12100d", "#faf7f2")
    readonly property color side: tone("#181511", "#f2ede4")
    readonly property color card: tone("#1e1a15", "#ffffff")
    readonly property color sheet: tone("#221d17", "#ffffff")
    readonly property color sheetLine: tone("#3a3128", "#ffffff")
    readonly property color raised: tone("#2a241d", "#f6f1e9")
    readonly property color hover: tone("#362e25", "#eee6da")
    readonly property color rowHover: tone("#26201a", "#faf6f0")
    readonly property color navOn: tone("#2a241d", "#ffffff")
    readonly property color field: tone("#15120e", "#fdfbf8")
    readonly property color noticeOk: tone("#1c2219", "#eff6ee")
    readonly property color noticeBad: tone("#2c1d16", "#fdf0e8")
    readonly property color scrim: tone("#b8080604", "#6b281e14")

    // Lines
    readonly property color line: tone("#2f2820", "#e8e0d4")
    readonly property color lineStrong: tone("#463c31", "#cfc3b2")
    readonly property color fieldLine: tone("#75685a", "#988b79")
    readonly property color switchOff: tone("#85786a", "#857969")
    readonly property color focus: tone("#f7f0e5", "#211a13")

    // Text and what carries state
    readonly property color text: tone("#f7f0e5", "#211a13")
    readonly property color text2: tone("#b9ad9d", "#5c5145")
    readonly property color text3: tone("#998d7c", "#6f6456")
    readonly property color accent: "#ffaf45"
    readonly property color accentInk: "#1e1305"
    readonly property color accentText: tone("#ffaf45", "#8a4f00")
    readonly property color ok: tone("#8fd19a", "#21703a")
    readonly property color warn: tone("#ff8a5b", "#a83f0b")
    readonly property color danger: tone("#ff8a80", "#b3261e")

    // The alert's own light in the dark
    readonly property color night: "#12100d"
    readonly property color cream: "#f7f0e5"
    readonly property color sand: "#f6cda2"
    readonly property color amber: "#ffaf45"
    readonly property color ember: "#ff8a5b"
    readonly property color ink: "#1e1305"
    readonly property color white: "#ffffff"

    readonly property var dots: ["#6fa8dc", "#5fb8a6", "#b58ce0", "#8fbf7f", "#e27d8d", "#e0b94f", "#7fb3a6"]

    readonly property string textFace: "Manrope"
    // A rounded face whose stems match the ring; in its absence the text face's boldest.
    readonly property string wantedClockFace: "National Park"
    readonly property bool hasClockFace: hasFamily(wantedClockFace)
    readonly property string clockFace: hasClockFace ? wantedClockFace : textFace
    // The clock face must be asked for at its heaviest, or its outlined style may be chosen.
    readonly property int clockWeight: hasClockFace ? Font.Black : Font.ExtraBold

    function hasFamily(name: string) : bool {
        const families = Qt.fontFamilies();
        for (let index = 0; index < families.length; ++index) {
            if (families[index] === name)
                return true;
        }
        return false;
    }

    function tone(inDark: string, inLight: string) : color {
        return mixed(Qt.color(inLight), Qt.color(inDark), Appearance.darkness);
    }

    /// `share` of `to`, the rest of `from`.
    function mixed(from: color, to: color, share: real) : color {
        return Qt.rgba(from.r + (to.r - from.r) * share, from.g + (to.g - from.g) * share,
                       from.b + (to.b - from.b) * share, from.a + (to.a - from.a) * share);
    }

    function faded(base: color, opacity: real) : color {
        return Qt.rgba(base.r, base.g, base.b, opacity);
    }

    /// A calendar's own colour ("#rrggbb"), or one by turn for the calendar at `index` if it has none.
    function dot(colorText: string, index: int) : color {
        return Qt.color(colorText !== "" ? colorText : dots[index % dots.length]);
    }
}

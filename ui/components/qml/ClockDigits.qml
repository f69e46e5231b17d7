// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// The countdown's digits in cells of equal width, so that nothing shifts from second to second.
Item {
    id: clock

    required property string text
    required property int fontSize
    required property real widest
    property color color: Theme.cream

    readonly property real cellWidth: 0.97 * zero.advanceWidth

    implicitWidth: digits.implicitWidth
    implicitHeight: digits.implicitHeight
    scale: Math.min(1, widest / Math.max(1, implicitWidth))

    // A width of 0 is the character's own.
    function cellWidthAt(index: int) : real {
        const character = text.charAt(index);
        if (character === ":")
            return 0.27 * fontSize;
        const isDigit = character >= "0" && character <= "9";
        // A single digit of minutes stands alone before its colon.
        const isLoneMinute = index === 0 && text.charAt(1) === ":";
        return isDigit && !isLoneMinute ? cellWidth : 0;
    }

    function cells() : var {
        const result = [];
        for (let index = 0; index < text.length; ++index) {
            const character = text.charAt(index);
            const lift = character === ":" ? 0.085 * fontSize : 0;
            result.push({ character: character, width: cellWidthAt(index), lift: lift, font: zero.font,
                          color: clock.color });
        }
        return result;
    }

    TextMetrics {
        id: zero

        text: "0"
        font.family: Theme.clockFace
        font.pixelSize: clock.fontSize
        font.weight: Theme.clockWeight
    }

    Row {
        id: digits

        // Numbers read from left to right in every language.
        LayoutMirroring.enabled: false

        Repeater {
            model: clock.cells()

            ClockCell {}
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// The countdown's digits in cells of equal width, so that nothing shifts from second to second.
Item {
    id: clock

    required property string text
    required property int fontSize
    required property real widest

    readonly property real cellWidth: 0.97 * zero.advanceWidth

    implicitWidth: digits.implicitWidth
    implicitHeight: digits.implicitHeight
    scale: Math.min(1, widest / Math.max(1, implicitWidth))

    function isDigit(index: int) : bool {
        const character = text.charAt(index);
        return character >= "0" && character <= "9";
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
            model: clock.text.length

            Text {
                required property int index

                readonly property bool isColon: text === ":"
                // A single digit of minutes stands alone before its colon.
                readonly property bool isLoneMinute: index === 0 && clock.text.charAt(1) === ":"

                text: clock.text.charAt(index)
                textFormat: Text.PlainText
                width: isColon ? 0.27 * clock.fontSize
                               : clock.isDigit(index) && !isLoneMinute ? clock.cellWidth : implicitWidth
                topPadding: isColon ? -0.085 * clock.fontSize : 0
                horizontalAlignment: Text.AlignHCenter
                color: Theme.cream
                font: zero.font
                Accessible.ignored: true
            }
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// One character of the clock. `modelData` has its character, its width (0 for its own), lift, font and colour.
Text {
    required property var modelData

    text: modelData.character
    textFormat: Text.PlainText
    width: modelData.width > 0 ? modelData.width : implicitWidth
    topPadding: -modelData.lift
    horizontalAlignment: Text.AlignHCenter
    color: modelData.color
    font: modelData.font
    Accessible.ignored: true
}

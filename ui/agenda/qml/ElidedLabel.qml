// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A line that says all of itself in a tooltip where there is no room for it.
Label {
    id: label

    HoverHandler {
        id: pointer
    }

    ToolTipText {
        target: label
        text: label.text
        wanted: pointer.hovered && label.truncated
    }
}

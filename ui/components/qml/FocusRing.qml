// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// The ring around what has the keyboard, four pixels out. A sibling or child of its `target`.
RoundedFrame {
    id: ring

    property Item target: parent
    /// The target's own, by default that of a capsule.
    property real targetRadius: target ? target.height / 2 : 0
    property real outset: 4

    readonly property bool isChild: parent === target

    x: (isChild || !target ? 0 : target.x) - outset
    y: (isChild || !target ? 0 : target.y) - outset
    width: (target ? target.width : 0) + 2 * outset
    height: (target ? target.height : 0) + 2 * outset
    radius: targetRadius + outset
    outline: Theme.focus
    lineWidth: 2
}

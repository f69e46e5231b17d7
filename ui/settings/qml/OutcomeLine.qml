// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// How something stands, or what became of it; a problem in the colour of one.
Item {
    id: line

    required property string text
    /// One of `Icons`, where it is no problem.
    property string icon: Icons.check
    property color tint: Theme.ok
    property bool problem: false
    /// Whether it is being done.
    property bool busy: false
    property bool strong: false

    visible: text !== ""
    implicitWidth: words.x + Math.ceil(words.implicitWidth)
    implicitHeight: Math.max(20, words.height)
    Accessible.role: Accessible.AlertMessage
    Accessible.name: text

    BusyRing {
        y: words.y + 2
        visible: line.busy
        color: line.tint
    }

    LineIcon {
        y: words.y + 2
        visible: !line.busy
        width: 14
        height: 14
        outline: line.problem ? Icons.warning : line.icon
        color: line.problem ? Theme.warn : line.tint
    }

    Label {
        id: words

        x: 21
        y: Math.round((line.height - height) / 2)
        width: line.width - x
        style: line.strong ? Label.Strong : Label.Small
        text: line.text
        color: line.problem ? Theme.warn : line.strong ? Theme.text : Theme.text2
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}

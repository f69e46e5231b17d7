// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A sentence with its icon; nothing at all without a text.
Item {
    id: note

    required property string icon
    required property string text

    visible: text !== ""
    implicitHeight: words.height

    LineIcon {
        y: 1
        width: 16
        height: 16
        outline: note.icon
        color: Theme.text3
    }

    Label {
        id: words

        x: 24
        width: parent.width - x
        style: Label.Small
        text: note.text
        color: Theme.text3
        wrapMode: Text.Wrap
        Accessible.role: Accessible.StaticText
        Accessible.name: text
    }
}

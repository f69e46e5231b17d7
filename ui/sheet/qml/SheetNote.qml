// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// What will happen, on a warm ground.
Rectangle {
    id: note

    required property string text

    implicitHeight: words.height + 24
    radius: 13
    color: Theme.faded(Theme.accent, Theme.dark ? 0.10 : 0.16)
    Accessible.role: Accessible.StaticText
    Accessible.name: text

    LineIcon {
        x: 14
        y: 14
        width: 18
        height: 18
        outline: Icons.bell
        color: Theme.accentText
    }

    Label {
        id: words

        x: 42
        y: 12
        width: parent.width - x - 14
        style: Label.Small
        text: note.text
        wrapMode: Text.Wrap
        Accessible.ignored: true
    }
}

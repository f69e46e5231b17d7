// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// Below a field: what is wrong with it, else how it is meant.
Item {
    id: note

    required property string hint
    required property string error

    readonly property bool isWrong: error !== ""

    visible: words.text !== ""
    implicitHeight: visible ? words.height : 0

    LineIcon {
        y: 2
        width: 14
        height: 14
        visible: note.isWrong
        outline: Icons.warning
        color: Theme.warn
    }

    Label {
        id: words

        x: note.isWrong ? 20 : 0
        width: note.width - x
        style: Label.Small
        text: note.isWrong ? note.error : note.hint
        color: note.isWrong ? Theme.warn : Theme.text3
        wrapMode: Text.Wrap
        // The field says it as its description.
        Accessible.ignored: true
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// The box of a secret field.
SecretBox {
    id: box

    required property FormField field

    signal accepted

    width: parent?.width ?? 0
    saved: field.hint
    value: field.text
    error: field.error
    onEdited: text => field.edit(text)
    onCleared: field.clear()
    onActiveFocusChanged: if (!activeFocus)
        field.leave()
    Keys.onReturnPressed: accepted()
    Keys.onEnterPressed: accepted()
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A setting that is on or off.
SettingRow {
    id: row

    property bool checked: false

    signal toggled(bool checked)

    ToggleSwitch {
        name: row.title
        checked: row.checked
        Accessible.description: row.note
        onToggled: checked => row.toggled(checked)
    }
}

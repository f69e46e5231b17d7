// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// What every control that is pressed has in common, without any looks. Its `shows…` are what a look follows. Another
/// `Accessible.role` than a button's may be given.
PressArea {
    id: control

    required property string name
    property bool showsHover: hovered
    property bool showsPress: pressed
    property bool showsFocus: visualFocus
    /// How far the hover's fade has come, 0 to 1.
    property real hoverShare: showsHover ? 1 : 0

    Accessible.role: Accessible.Button
    Accessible.name: name
    Accessible.focusable: enabled
    Accessible.onPressAction: click()

    Behavior on hoverShare {
        NumberAnimation { duration: 120 }
    }
}

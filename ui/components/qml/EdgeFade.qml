// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// Fades what lies below it into `color`, downwards. Lay it over the lower edge of what scrolls.
Rectangle {
    id: fade

    implicitHeight: 36
    color: Theme.canvas
    gradient: Gradient {
        GradientStop {
            position: 0
            color: Theme.faded(fade.color, 0)
        }
        GradientStop {
            position: 1
            color: fade.color
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A hairline, across by default.
Rectangle {
    property bool upright: false

    implicitWidth: upright ? 1 : 100
    implicitHeight: upright ? 100 : 1
    color: Theme.line
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// The bar of a Flickable: `T.ScrollBar.vertical: ScrollThumb {}` with QtQuick.Templates as T.
T.ScrollBar {
    id: bar

    implicitWidth: 5 + leftPadding + rightPadding
    implicitHeight: 5 + topPadding + bottomPadding
    padding: 2
    minimumSize: 0.06
    visible: size < 1
    hoverEnabled: true
    Accessible.ignored: true

    contentItem: Rectangle {
        implicitWidth: 5
        implicitHeight: 5
        radius: 2.5
        color: bar.pressed || bar.hovered ? Theme.fieldLine : Theme.lineStrong
    }
}

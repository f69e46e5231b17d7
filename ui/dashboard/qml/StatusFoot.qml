// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Dashboard

/// One look: protected or not.
Item {
    id: foot

    required property Dashboard dashboard
    required property bool isRail

    height: 46
    Accessible.role: Accessible.StaticText
    Accessible.name: qsTr("%1. %2").arg(dashboard.statusLine).arg(dashboard.statusDetail)

    StateDot {
        id: dot

        y: 1
        width: 17
        height: 17
        halo: true
        color: foot.dashboard.needsAttention ? Theme.warn : Theme.ok
    }

    Label {
        x: 24
        visible: !foot.isRail
        width: parent.width - x
        style: Label.SmallStrong
        font.weight: Font.Bold
        text: foot.dashboard.statusLine
        Accessible.ignored: true
    }

    Label {
        x: 24
        y: 20
        visible: !foot.isRail
        width: parent.width - x
        style: Label.Small
        text: foot.dashboard.statusDetail
        color: Theme.text3
        Accessible.ignored: true
    }

    HoverHandler {
        id: pointer
    }

    ToolTipText {
        target: foot
        wanted: pointer.hovered
        text: foot.Accessible.name
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Dashboard

/// One section's entry.
PressControl {
    id: item

    required property Dashboard dashboard
    required property int section
    required property bool isRail
    required property string text
    required property string outline
    /// What waits for the user there.
    property int badge: 0

    readonly property bool isCurrent: dashboard.section === section

    implicitHeight: 42
    name: badge > 0 ? qsTr("%1, to look after: %2").arg(text).arg(badge) : text
    Accessible.role: Accessible.PageTab
    Accessible.selected: isCurrent
    onClicked: dashboard.section = section
    Keys.onUpPressed: item.nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)
    Keys.onDownPressed: item.nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)

    Rectangle {
        anchors.fill: parent
        radius: 12
        color: item.isCurrent ? Theme.navOn : Theme.faded(Theme.hover, item.hoverShare)
        border.width: item.isCurrent ? 1 : 0
        border.color: Theme.line
    }

    Item {
        anchors.fill: parent

        LineIcon {
            x: item.isRail ? (parent.width - width) / 2 : 12
            anchors.verticalCenter: parent.verticalCenter
            width: 20
            height: 20
            outline: item.outline
            color: item.isCurrent ? Theme.accentText : Theme.text2
        }

        Label {
            x: 44
            anchors.verticalCenter: parent.verticalCenter
            visible: !item.isRail
            width: parent.width - x - (item.badge > 0 ? 36 : 8)
            style: Label.Strong
            font.weight: item.isCurrent ? Font.Bold : Font.DemiBold
            text: item.text
            color: item.isCurrent ? Theme.text : Theme.text2
            Accessible.ignored: true
        }

        Rectangle {
            x: parent.width - (item.isRail ? 16 : 31)
            y: item.isRail ? -4 : (parent.height - height) / 2
            width: 20
            height: 20
            radius: 10
            visible: item.badge > 0
            color: Theme.warn

            Label {
                anchors.centerIn: parent
                style: Label.Caption
                text: item.badge
                color: Theme.dark ? Theme.accentInk : Theme.white
                Accessible.ignored: true
            }
        }
    }

    FocusRing {
        visible: item.showsFocus
        targetRadius: 12
    }

    ToolTipText {
        target: item
        text: item.name
        wanted: item.isRail && (item.hovered || item.visualFocus)
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Dashboard

/// The way between the sections, and whether all is well.
Rectangle {
    id: sidebar

    required property Dashboard dashboard
    /// Too narrow for words: icons with tooltips.
    required property bool isRail

    color: Theme.side
    Accessible.role: Accessible.PageTabList
    Accessible.name: qsTr("Sections")

    Rectangle {
        anchors.right: parent.right
        width: 1
        height: parent.height
        color: Theme.line
    }

    Mark {
        x: sidebar.isRail ? (parent.width - side) / 2 : 22
        y: 25
        side: 30
        Accessible.ignored: true
    }

    Label {
        x: 63
        y: 40 - height / 2
        visible: !sidebar.isRail
        text: "Quorvane"
        font.pixelSize: 19
        font.weight: Font.ExtraBold
        font.letterSpacing: -0.4
        Accessible.ignored: true
    }

    Column {
        x: 12
        y: 82
        width: parent.width - 25
        spacing: 4

        SidebarItem {
            width: parent.width
            section: Dashboard.Section.agenda
            dashboard: sidebar.dashboard
            isRail: sidebar.isRail
            text: qsTr("Agenda")
            outline: Icons.agenda
        }
        SidebarItem {
            width: parent.width
            section: Dashboard.Section.calendars
            dashboard: sidebar.dashboard
            isRail: sidebar.isRail
            text: qsTr("Calendars")
            outline: Icons.calendar
            badge: sidebar.dashboard.attentionCount
        }
        SidebarItem {
            width: parent.width
            section: Dashboard.Section.settings
            dashboard: sidebar.dashboard
            isRail: sidebar.isRail
            text: qsTr("Settings")
            outline: Icons.gear
        }
    }

    StatusFoot {
        x: sidebar.isRail ? (parent.width - 17) / 2 : 18
        y: parent.height - (sidebar.isRail ? 59 : 60)
        width: parent.width - x - 14
        dashboard: sidebar.dashboard
        isRail: sidebar.isRail
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// The groups of settings in two columns, or one below the other where there is no room for two.
Item {
    id: page

    required property SettingsForm settings

    readonly property real margin: width < 688 ? 18 : 26
    readonly property real contentWidth: Math.min(1180, width - 2 * margin)
    readonly property bool isSplit: contentWidth >= 720
    readonly property real columnWidth: isSplit ? (contentWidth - gap) / 2 : contentWidth
    readonly property real gap: 18

    property bool updatesWanted: false

    /// Brings the updates into sight, with the keyboard at what to press next.
    function showUpdates() : void {
        // A page that has just been made gets its places with the next frame.
        updatesWanted = true;
        Window.window?.update();
    }

    onVisibleChanged: if (visible)
        settings.reload()
    Component.onCompleted: settings.reload()

    Connections {
        target: page.updatesWanted ? page.Window.window : null

        function onFrameSwapped() {
            page.updatesWanted = false;
            area.reveal(updateGroup);
            updateGroup.begin();
        }
    }

    /// Keeps in sight what becomes of an update that the person asked for.
    function followUpdates() : void {
        if (updateGroup.asked && area.shows(updateGroup))
            area.reveal(updateGroup);
    }

    ScrollArea {
        id: area

        anchors.fill: parent
        // The group may have grown before there was room to scroll to, and the window become smaller since.
        onContentHeightChanged: page.followUpdates()
        onHeightChanged: page.followUpdates()
        contentHeight: Math.max(left.y + left.height, right.y + right.height) + page.gap

        PageHeading {
            x: page.margin
            y: 20
            width: page.contentWidth
            title: qsTr("Settings")
        }

        Column {
            id: left

            x: page.margin
            y: 80
            width: page.columnWidth
            spacing: page.gap

            AlertGroup {
                width: parent.width
                alerts: page.settings.alerts
            }
            ServerGroup {
                width: parent.width
                server: page.settings.server
            }
        }

        Column {
            id: right

            x: page.margin + (page.isSplit ? page.columnWidth + page.gap : 0)
            y: page.isSplit ? left.y : left.y + left.height + page.gap
            width: page.columnWidth
            spacing: page.gap

            PhoneGroup {
                width: parent.width
                phone: page.settings.phone
            }
            UpdateGroup {
                id: updateGroup

                objectName: "updates"
                width: parent.width
                updates: page.settings.updates
                onHeightChanged: page.followUpdates()
            }
        }
    }
}

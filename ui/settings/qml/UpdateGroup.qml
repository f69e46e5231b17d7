// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// How this program is kept current.
SettingsGroup {
    id: group

    required property UpdateSettings updates
    /// Whether the person has asked for something here, and so wants to see what becomes of it.
    property bool asked: false

    /// Gives the keyboard to what the person would press next.
    function begin() : void {
        asked = true;
        (status.nextStep ?? checkButton).forceActiveFocus(Qt.OtherFocusReason);
    }

    onVisibleChanged: asked = false
    title: qsTr("Updates")
    icon: Icons.download
    note: updates.updatesItself ? qsTr("Keep Quorvane current. An update waits until no meeting alert is on screen.")
                                : updates.keeper

    SwitchRow {
        title: qsTr("Check for updates automatically")
        enabled: group.updates.updatesItself
        checked: group.updates.automaticallyChecks
        onToggled: checked => group.updates.automaticallyChecks = checked
    }

    SwitchRow {
        title: qsTr("Download and install updates automatically")
        note: qsTr("Installation waits until no meeting alert is showing.")
        enabled: group.updates.updatesItself
        checked: group.updates.automaticallyDownloads
        onToggled: checked => group.updates.automaticallyDownloads = checked
    }

    Separator {
        width: parent.width
    }

    SettingRow {
        title: qsTr("Installed version")
        note: group.updates.version
        speaks: true

        ActionButton {
            id: checkButton

            text: qsTr("Check for Updates")
            icon: Icons.refresh
            enabled: group.updates.canCheckForUpdates
            onClicked: {
                group.asked = true;
                group.updates.checkNow();
            }
        }
    }

    UpdateStatus {
        id: status

        width: parent.width
        updates: group.updates
        fallback: checkButton
    }
}

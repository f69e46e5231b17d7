// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// How this program is kept current.
SettingsGroup {
    id: group

    required property UpdateSettings updates

    title: qsTr("Updates")
    icon: Icons.download
    note: updates.updatesItself ? qsTr("Keep Quorvane current. An update waits until no meeting alert is on screen.")
                                : qsTr("This copy of Quorvane is kept current by the way it was installed.")

    SwitchRow {
        title: qsTr("Check for updates automatically")
        enabled: group.updates.updatesItself
        checked: group.updates.automaticallyChecks
        onToggled: checked => group.updates.automaticallyChecks = checked
    }

    SwitchRow {
        title: qsTr("Download and install updates automatically")
        note: qsTr("Installation waits until no meeting alert is showing.")
        enabled: group.updates.updatesItself && group.updates.canDownloadAutomatically
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
            text: qsTr("Check for Updates")
            icon: Icons.refresh
            enabled: group.updates.canCheckForUpdates
            onClicked: group.updates.checkNow()
        }
    }
}

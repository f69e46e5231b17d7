// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// How alerts behave.
SettingsGroup {
    id: group

    required property AlertSettings alerts

    title: qsTr("Alerts")
    icon: Icons.bell

    SwitchRow {
        title: qsTr("Play a sound until I respond")
        note: qsTr("Repeats softly while the alert is open.")
        checked: group.alerts.soundEnabled
        onToggled: checked => group.alerts.soundEnabled = checked
    }

    Separator {
        width: parent.width
    }

    SettingRow {
        title: qsTr("See what it looks like")
        note: qsTr("Covers every display with a sample meeting.")
        speaks: true

        ActionButton {
            text: qsTr("Preview alert")
            icon: Icons.play
            onClicked: group.alerts.previewAlert()
        }
    }

    Separator {
        width: parent.width
    }

    SettingRow {
        title: qsTr("Pause screen alerts")
        note: group.alerts.pauseNote
        speaks: true

        ActionButton {
            text: group.alerts.pauseAction
            icon: group.alerts.paused ? Icons.play : Icons.pause
            kind: group.alerts.paused ? ActionButton.Primary : ActionButton.Secondary
            onClicked: group.alerts.togglePause()
        }
    }
}

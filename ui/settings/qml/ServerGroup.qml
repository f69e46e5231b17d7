// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Settings

/// The user's own server.
SettingsGroup {
    id: group

    required property ServerSettings server

    title: qsTr("Server")
    icon: Icons.server
    note: server.note

    TextBox {
        width: parent.width
        label: qsTr("HTTPS server address")
        placeholder: "https://"
        text: group.server.address.text
        error: group.server.address.error
        onEdited: text => group.server.address.edit(text)
        onActiveFocusChanged: if (!activeFocus)
            group.server.address.leave()
        Keys.onReturnPressed: group.server.save()
        Keys.onEnterPressed: group.server.save()
    }

    SecretField {
        label: qsTr("Server access token")
        field: group.server.token
        onAccepted: group.server.save()
    }

    SwitchRow {
        title: qsTr("Share my alert schedule")
        note: qsTr("Titles, start times and links for the next 14 days.")
        checked: group.server.sharesSchedule
        onToggled: checked => group.server.sharesSchedule = checked
    }

    ServerActions {
        width: parent.width
        server: group.server
    }

    OutcomeLine {
        width: parent.width
        text: group.server.actions.outcome
        problem: group.server.actions.failed
    }
}

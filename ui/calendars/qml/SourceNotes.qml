// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Calendars
import Quorvane.Components

/// What is to be known of the sources that no account below says.
Column {
    id: notes

    required property CalendarChoices calendars

    spacing: 5

    SourceNote {
        objectName: "status"
        width: parent.width
        icon: Icons.calendar
        text: notes.calendars.status
    }

    SourceNote {
        objectName: "fantasticalStatus"
        width: parent.width
        icon: Icons.calendar
        text: notes.calendars.fantasticalStatus
    }

    SourceNote {
        width: parent.width
        icon: Icons.info
        text: qsTr("Fantastical: %1").arg(notes.calendars.fantasticalExplanation)
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda
import Quorvane.Calendars
import Quorvane.Dashboard
import Quorvane.Settings

/// The page in front. One that has been looked at keeps its place while another is in front.
Item {
    id: stack

    required property Dashboard dashboard

    signal addMeetingRequested

    Loader {
        anchors.fill: parent
        active: visible || item
        visible: stack.dashboard.section === Dashboard.Section.agenda
        sourceComponent: AgendaPage {
            agenda: stack.dashboard.agenda
            onAddMeetingRequested: stack.addMeetingRequested()
            onCalendarsRequested: stack.dashboard.section = Dashboard.Section.calendars
        }
    }

    Loader {
        anchors.fill: parent
        active: visible || item
        visible: stack.dashboard.section === Dashboard.Section.calendars
        sourceComponent: CalendarsPage {
            calendars: stack.dashboard.calendars
        }
    }

    Loader {
        anchors.fill: parent
        active: visible || item
        visible: stack.dashboard.section === Dashboard.Section.settings
        sourceComponent: SettingsPage {
            settings: stack.dashboard.settings
        }
    }
}

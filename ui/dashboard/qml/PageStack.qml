// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Dashboard

/// The page in front.
Item {
    id: stack

    required property Dashboard dashboard

    signal addMeetingRequested

    LazyPage {
        id: agenda

        anchors.fill: parent
        visible: stack.dashboard.section === Dashboard.Section.agenda
        view: "qrc:/Quorvane/Agenda/AgendaPage.qml"
        properties: ({ agenda: stack.dashboard.agenda })
    }

    Connections {
        target: agenda.item

        function onAddMeetingRequested() {
            stack.addMeetingRequested();
        }
        function onCalendarsRequested() {
            stack.dashboard.section = Dashboard.Section.calendars;
        }
    }

    LazyPage {
        anchors.fill: parent
        visible: stack.dashboard.section === Dashboard.Section.calendars
        view: "qrc:/Quorvane/Calendars/CalendarsPage.qml"
        properties: ({ calendars: stack.dashboard.calendars })
    }

    LazyPage {
        id: settings

        anchors.fill: parent
        visible: stack.dashboard.section === Dashboard.Section.settings
        view: "qrc:/Quorvane/Settings/SettingsPage.qml"
        properties: ({ settings: stack.dashboard.settings })
    }

    Connections {
        target: stack.dashboard

        function onUpdatesRequested() {
            settings.page.showUpdates();
        }
    }
}

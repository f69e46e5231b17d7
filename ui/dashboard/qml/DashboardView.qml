// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Dashboard
import Quorvane.Sheet

/// The whole window: sidebar, notice, the page in front, the sheet over all of it.
Rectangle {
    id: view

    required property Dashboard dashboard

    readonly property bool isNarrow: width < 900
    /// Where the keyboard was before the sheet took it.
    property Item lastFocus: null

    function openSheet() {
        if (!dashboard.sheetOpen)
            lastFocus = Window.activeFocusItem;
        dashboard.openSheet();
    }

    function closeSheet() {
        dashboard.closeSheet();
        if (lastFocus)
            lastFocus.forceActiveFocus(Qt.PopupFocusReason);
    }

    color: Theme.canvas

    FocusScope {
        id: body

        anchors.fill: parent
        focus: true

        Sidebar {
            id: sidebar

            height: parent.height
            width: view.isNarrow ? 72 : 216
            dashboard: view.dashboard
            isRail: view.isNarrow
        }

        NoticeBar {
            id: notice

            readonly property int margin: view.width < 760 ? 18 : 26

            x: sidebar.width + margin
            width: Math.min(1180, view.width - x - margin)
            banner: view.dashboard.banner
            isNarrow: view.isNarrow
        }

        PageStack {
            x: sidebar.width
            y: notice.height
            width: parent.width - x
            height: parent.height - y
            dashboard: view.dashboard
            onAddMeetingRequested: view.openSheet()
        }
    }

    Loader {
        anchors.fill: parent
        active: view.dashboard.sheetOpen
        sourceComponent: AddMeetingSheet {
            form: view.dashboard.sheet
            onDismissed: view.closeSheet()
        }
    }

    Shortcut {
        sequences: [StandardKey.New]
        enabled: !view.dashboard.sheetOpen
        onActivated: view.openSheet()
    }
    Shortcut {
        sequences: [StandardKey.Refresh]
        enabled: !view.dashboard.sheetOpen
        onActivated: view.dashboard.refresh()
    }
    Shortcut {
        sequences: [StandardKey.Close]
        onActivated: view.Window.window.close()
    }
    Instantiator {
        model: [Dashboard.Section.agenda, Dashboard.Section.calendars, Dashboard.Section.settings]

        Shortcut {
            required property int index
            required property int modelData

            sequence: "Ctrl+" + (index + 1)
            enabled: !view.dashboard.sheetOpen
            onActivated: view.dashboard.section = modelData
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Dashboard

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
        const place = lastFocus?.visible ? lastFocus : body;
        place.forceActiveFocus(Qt.PopupFocusReason);
    }

    function showSheet() {
        if (dashboard.sheetOpen)
            sheet.setSource("qrc:/Quorvane/Sheet/AddMeetingSheet.qml", { form: dashboard.sheet });
        else
            sheet.source = "";
    }

    color: Theme.canvas
    Component.onCompleted: showSheet()

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

        // Covers what scrolls on the page, like the agenda's head, and for the same reason.
        Rectangle {
            x: sidebar.width
            z: 1
            width: parent.width - x
            height: notice.height
            visible: height > 0
            radius: 1
            color: Theme.canvas
        }

        NoticeBar {
            id: notice

            readonly property int margin: view.width < 760 ? 18 : 26

            x: sidebar.width + margin
            z: 1 // its lower edge reaches into the page
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
        id: sheet

        anchors.fill: parent
    }

    Connections {
        target: view.dashboard

        function onSheetOpenChanged() {
            view.showSheet();
        }
    }

    Connections {
        target: sheet.item

        function onDismissed() {
            view.closeSheet();
        }
    }

    Shortcut {
        sequence: "Ctrl+N"
        enabled: !view.dashboard.sheetOpen
        onActivated: view.openSheet()
    }
    Shortcut {
        sequences: ["F5", "Ctrl+R"]
        enabled: !view.dashboard.sheetOpen
        onActivated: view.dashboard.refresh()
    }
    Shortcut {
        sequence: "Ctrl+W"
        onActivated: view.Window.window.close()
    }
    Shortcut {
        sequence: "Ctrl+1"
        enabled: !view.dashboard.sheetOpen
        onActivated: view.dashboard.section = Dashboard.Section.agenda
    }
    Shortcut {
        sequence: "Ctrl+2"
        enabled: !view.dashboard.sheetOpen
        onActivated: view.dashboard.section = Dashboard.Section.calendars
    }
    Shortcut {
        sequence: "Ctrl+3"
        enabled: !view.dashboard.sheetOpen
        onActivated: view.dashboard.section = Dashboard.Section.settings
    }
}

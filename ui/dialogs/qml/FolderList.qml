// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// Names of folders. Return, Right or a double click goes into one, Left or Backspace out of where they lie.
ListView {
    id: list

    /// Empty as long as the person points at none.
    readonly property string current: currentIndex >= 0 && currentIndex < count ? model[currentIndex] : ""

    signal opened(string name)
    signal upwards

    function openCurrent() {
        if (current)
            opened(current);
    }

    /// With a new model a list would point at its first entry.
    function show(names) {
        model = names;
        currentIndex = -1;
    }

    clip: true
    activeFocusOnTab: true
    keyNavigationEnabled: true
    boundsBehavior: Flickable.StopAtBounds
    highlightMoveDuration: 0
    Keys.onReturnPressed: openCurrent()
    Keys.onEnterPressed: openCurrent()
    Keys.onRightPressed: openCurrent()
    Keys.onLeftPressed: upwards()
    Keys.onPressed: event => {
        if (event.key !== Qt.Key_Backspace)
            return;
        event.accepted = true;
        upwards();
    }
    Accessible.role: Accessible.List

    delegate: FolderRow {
        onActivated: (ListView.view as FolderList).openCurrent()
    }
}

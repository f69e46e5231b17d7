// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// Stands before or behind what keeps the keyboard to itself: whoever tabs out of that comes by here.
Item {
    signal entered

    /// Hands the keyboard to what stands behind the fence.
    function goOn() {
        nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason);
    }
    /// Hands it to what stands before the fence.
    function goBack() {
        nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason);
    }

    activeFocusOnTab: true
    onActiveFocusChanged: {
        if (activeFocus)
            entered();
    }
}

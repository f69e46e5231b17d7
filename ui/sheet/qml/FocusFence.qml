// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// Stands before or behind what keeps the keyboard to itself: whoever tabs out of that comes by here.
Item {
    signal entered

    function previous() : Item {
        return nextItemInFocusChain(false);
    }

    activeFocusOnTab: true
    onActiveFocusChanged: {
        if (activeFocus)
            entered();
    }
}

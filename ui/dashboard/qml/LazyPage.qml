// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// A page that is made when it is first looked at, and keeps its place from then on.
Loader {
    id: place

    /// The page's file and what it is given.
    required property url view
    required property var properties
    /// Of the page's own type, which is not known before it is loaded.
    readonly property var page: item

    function make() {
        if (visible && status === Loader.Null)
            setSource(view, properties);
    }

    // Else what was in use on it would still get the keys.
    enabled: visible
    onVisibleChanged: make()
    Component.onCompleted: make()
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick

/// A short text beside its `target` while it is `wanted`, after a moment. Its bubble is made when it is first wanted.
Loader {
    id: tip

    property Item target: parent as Item
    required property string text
    property bool wanted: false

    readonly property bool isDue: wanted && text !== ""

    onIsDueChanged: {
        if (isDue && status === Loader.Null)
            setSource("ToolTipBubble.qml", { tip: tip });
    }
}

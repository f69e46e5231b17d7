// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// Asks once, in place, whether a meeting shall really go. The focus begins on the answer that loses nothing.
Row {
    id: question

    required property string title
    /// By Tab.
    required property bool reachable

    signal confirmed
    signal declined

    spacing: 8

    function takeFocus() {
        if (visible)
            keep.forceActiveFocus(Qt.TabFocusReason);
    }

    function answerNo() {
        if (visible)
            declined();
    }

    Label {
        anchors.verticalCenter: parent.verticalCenter
        style: Label.SmallStrong
        text: qsTr("Delete?")
        color: Theme.text2
        Accessible.ignored: true
    }

    ActionButton {
        objectName: "deleteConfirm"
        activeFocusOnTab: question.reachable
        size: ActionButton.Compact
        kind: ActionButton.Danger
        text: qsTr("Delete")
        name: qsTr("Delete %1 for good").arg(question.title)
        onClicked: question.confirmed()
    }

    ActionButton {
        id: keep

        objectName: "deleteKeep"
        activeFocusOnTab: question.reachable
        size: ActionButton.Compact
        kind: ActionButton.Secondary
        text: qsTr("Keep")
        name: qsTr("Keep %1").arg(question.title)
        onClicked: question.declined()
    }
}

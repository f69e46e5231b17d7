// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// What the program has to say now, on top of a page. Without a `text` it goes, and takes no height any more.
FocusScope {
    id: banner

    enum Kind {
        Success,
        Problem
    }

    required property string text
    property int kind: NoticeBanner.Problem
    /// What the notice itself offers to do; empty if nothing.
    property string actionText: ""
    /// Whether the text takes two lines instead of being cut.
    property bool narrow: false

    /// Whether somebody points at it or works in it.
    readonly property bool attended: hover.hovered || activeFocus
    readonly property bool isWanted: text !== ""
    readonly property real fullHeight: narrow ? 66 : 48
    /// How far it has come, 0 to 1.
    property real presence: isWanted ? 1 : 0

    // What it said stays until it has gone.
    property string shownText: ""
    property int shownKind: kind
    readonly property color tint: shownKind === NoticeBanner.Success ? Theme.ok : Theme.warn

    signal action
    signal dismissed

    function take() : void {
        if (text === "")
            return;
        shownText = text;
        shownKind = kind;
    }

    onTextChanged: take()
    onKindChanged: take()
    Component.onCompleted: take()

    implicitWidth: 400
    implicitHeight: Math.round(fullHeight * (Theme.reduceMotion ? Math.ceil(presence) : presence))
    visible: presence > 0
    enabled: isWanted

    Behavior on presence {
        NumberAnimation {
            duration: banner.isWanted ? 180 : 140
            easing.type: Easing.OutCubic
        }
    }

    HoverHandler {
        id: hover
    }

    Rectangle {
        objectName: "notice"
        y: banner.implicitHeight - height
        width: parent.width
        height: banner.fullHeight
        radius: 14
        opacity: banner.presence
        color: banner.shownKind === NoticeBanner.Success ? Theme.noticeOk : Theme.noticeBad
        border.width: 1
        border.color: Theme.faded(banner.tint, banner.shownKind === NoticeBanner.Success ? 0.40 : 0.45)

        Accessible.role: Accessible.AlertMessage
        Accessible.name: banner.shownText

        LineIcon {
            x: 16
            anchors.verticalCenter: parent.verticalCenter
            width: 18
            height: 18
            outline: banner.shownKind === NoticeBanner.Success ? Icons.check : Icons.warning
            color: banner.tint
        }

        Label {
            id: words

            anchors.left: parent.left
            anchors.leftMargin: 46
            anchors.right: actionButton.visible ? actionButton.left : closeButton.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            style: Label.Strong
            text: banner.shownText
            wrapMode: banner.narrow ? Text.Wrap : Text.NoWrap
            maximumLineCount: banner.narrow ? 2 : 1
            Accessible.ignored: true
        }

        ActionButton {
            id: actionButton

            objectName: "action"
            anchors.right: closeButton.left
            anchors.rightMargin: 6
            anchors.verticalCenter: parent.verticalCenter
            visible: banner.actionText !== ""
            kind: ActionButton.Quiet
            size: ActionButton.Compact
            text: banner.actionText
            onClicked: banner.action()
        }

        IconButton {
            id: closeButton

            objectName: "close"
            anchors.right: parent.right
            anchors.rightMargin: 8
            anchors.verticalCenter: parent.verticalCenter
            icon: Icons.close
            name: qsTr("Dismiss")
            onClicked: banner.dismissed()
        }
    }
}

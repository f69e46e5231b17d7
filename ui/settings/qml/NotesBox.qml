// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// What somebody else wrote, as plain text, in a box that does not grow beyond `tallest`. What is longer is moved by
/// wheel, thumb and keys.
Item {
    id: box

    required property string text
    required property string name
    property real tallest: 150

    readonly property int padding: 12
    readonly property bool overflows: implicitHeight < words.height + 2 * padding

    function scrollBy(distance: real) : void {
        const end = flickable.contentHeight - flickable.height;
        flickable.contentY = Math.max(0, Math.min(flickable.contentY + distance, end));
    }

    implicitHeight: Math.min(tallest, words.height + 2 * padding)
    activeFocusOnTab: overflows
    onTextChanged: flickable.contentY = 0
    Accessible.role: Accessible.Grouping
    Accessible.name: name
    Accessible.focusable: overflows
    Keys.onUpPressed: scrollBy(-40)
    Keys.onDownPressed: scrollBy(40)
    Keys.onPressed: event => {
        const step = event.key === Qt.Key_PageDown ? 0.8 : event.key === Qt.Key_PageUp ? -0.8 : 0;
        event.accepted = step !== 0 && overflows;
        if (event.accepted)
            scrollBy(step * flickable.height);
    }

    Rectangle {
        anchors.fill: parent
        radius: 13
        color: Theme.field
        border.width: 1
        border.color: Theme.line
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        anchors.margins: 1
        contentWidth: width
        contentHeight: words.height + 2 * (box.padding - 1)
        clip: true
        interactive: box.overflows
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ScrollThumb {}

        Label {
            id: words

            objectName: "notes"
            x: box.padding + 1
            y: box.padding - 1
            width: flickable.width - 2 * x
            style: Label.Small
            text: box.text
            color: Theme.text2
            wrapMode: Text.Wrap
        }
    }

    EdgeFade {
        x: 2
        y: box.height - height - 2
        width: box.width - 12
        implicitHeight: 20
        visible: box.overflows && !flickable.atYEnd
        color: Theme.field
    }

    FocusRing {
        visible: box.activeFocus
        targetRadius: 13
        outset: 3
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// What may be higher than the window, moved by wheel, thumb and page keys. What gets the keyboard is brought into
/// sight.
Item {
    id: area

    property alias contentHeight: flickable.contentHeight
    default property alias content: flickable.flickableData

    readonly property Item focusItem: Window.activeFocusItem

    function scrollTo(y: real) : void {
        flickable.contentY = Math.max(0, Math.min(y, flickable.contentHeight - flickable.height));
    }

    function holds(item: Item) : bool {
        let ancestor = item;
        while (ancestor && ancestor !== flickable.contentItem)
            ancestor = ancestor.parent;
        return ancestor !== null;
    }

    function reveal(item: Item) : void {
        const room = 60;
        const top = item.mapToItem(flickable.contentItem, 0, 0).y;
        if (top - room < flickable.contentY)
            scrollTo(top - room);
        else if (top + item.height + room > flickable.contentY + flickable.height)
            scrollTo(top + item.height + room - flickable.height);
    }

    function shows(item: Item) : bool {
        const top = item.mapToItem(flickable, 0, 0).y;
        return top < flickable.height && top + item.height > 0;
    }

    onFocusItemChanged: if (focusItem && holds(focusItem))
        reveal(focusItem)
    Keys.onPressed: event => {
        const step = event.key === Qt.Key_PageDown ? 0.8 : event.key === Qt.Key_PageUp ? -0.8 : 0;
        event.accepted = step !== 0;
        if (event.accepted)
            scrollTo(flickable.contentY + step * flickable.height);
    }

    Flickable {
        id: flickable

        anchors.fill: parent
        contentWidth: width
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ScrollThumb {}
    }

    EdgeFade {
        anchors.bottom: parent.bottom
        width: parent.width
        visible: !flickable.atYEnd
    }
}

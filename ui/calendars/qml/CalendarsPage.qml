// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Quorvane.Calendars
import Quorvane.Components

/// Where meetings come from, and which calendars are left out.
FocusScope {
    id: page

    required property CalendarChoices calendars

    readonly property int margin: width < 688 ? 18 : 26
    readonly property int contentWidth: Math.min(1180, width - 2 * margin)
    readonly property Item focusedItem: Window.activeFocusItem

    function reveal(item: Item) {
        const area = item.mapToItem(content, 0, 0, item.width, item.height);
        const low = Math.max(scroll.contentY, area.y + area.height + 44 - scroll.height);
        scroll.contentY = Math.max(0, Math.min(area.y - 20, low, scroll.contentHeight - scroll.height));
    }

    onFocusedItemChanged: {
        if (page.activeFocus && focusedItem && focusedItem !== page)
            reveal(focusedItem);
    }

    Flickable {
        id: scroll

        anchors.fill: parent
        contentHeight: content.height
        clip: true
        boundsBehavior: Flickable.StopAtBounds
        T.ScrollBar.vertical: ScrollThumb {}

        Item {
            id: content

            width: scroll.width
            height: empty.visible ? empty.y + empty.height + 44 : accounts.y + accounts.height + 44

            PageHeading {
                id: heading

                x: page.margin
                y: 20
                width: page.contentWidth
                title: qsTr("Calendars")

                ActionButton {
                    objectName: "refresh"
                    size: ActionButton.Heading
                    icon: Icons.refresh
                    text: qsTr("Refresh all")
                    onClicked: page.calendars.refresh()
                }
            }

            Label {
                id: intro

                x: page.margin
                y: heading.y + heading.height + 10
                width: page.contentWidth
                text: qsTr("Quorvane reads these calendars and never writes to them. Turn off the ones that should not alert you.")
                color: Theme.text2
                wrapMode: Text.Wrap
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }

            ConnectCards {
                id: connect

                x: page.margin
                y: intro.y + intro.height + 18
                width: page.contentWidth
                calendars: page.calendars
            }

            SourceNotes {
                id: notes

                x: page.margin + 4
                y: connect.y + connect.height + 14
                width: page.contentWidth - 8
                calendars: page.calendars
            }

            Column {
                id: accounts

                x: page.margin
                y: notes.y + notes.height + 18
                width: page.contentWidth
                spacing: 16

                Repeater {
                    model: page.calendars.accounts

                    AccountPart {
                        width: accounts.width
                        calendarChoices: page.calendars
                    }
                }
            }

            Label {
                id: empty

                x: page.margin + 4
                y: notes.y + notes.height + 30
                visible: page.calendars.accounts.count === 0
                width: page.contentWidth - 8
                text: qsTr("No calendars yet. Connect one above, and its meetings appear in your agenda.")
                color: Theme.text2
                wrapMode: Text.Wrap
                Accessible.role: Accessible.StaticText
                Accessible.name: text
            }
        }
    }

    EdgeFade {
        anchors.bottom: parent.bottom
        width: parent.width - 10
        visible: !scroll.atYEnd
    }
}

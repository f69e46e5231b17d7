// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Agenda
import Quorvane.Components

/// The agenda: the next meeting, all meetings by day, and how safe the user is. Where the page is high enough, heading
/// and hero stay while the rest scrolls.
Item {
    id: page

    required property Agenda agenda

    readonly property int margin: width < 688 ? 18 : 26
    readonly property real contentWidth: Math.min(1180, width - 2 * margin)
    readonly property bool headStays: height >= 700
    readonly property bool isWide: contentWidth >= 780
    readonly property bool isListed: !agenda.empty.face.isShown
    readonly property real listWidth: isWide ? contentWidth - 284 : contentWidth
    /// Where the list begins, below what stays or scrolls above it.
    readonly property real bodyTop: hero.visible ? 296 : 80
    /// Room for focus rings at the edge of what scrolls.
    readonly property int edge: 6

    signal addMeetingRequested
    signal calendarsRequested

    Item {
        id: head

        x: page.margin
        y: page.headStays ? 0 : -scroll.contentY
        z: 1
        width: page.contentWidth
        height: page.bodyTop - page.edge

        // Covers what scrolls below it. Clipping would not do: the software renderer draws shapes that lie outside of
        // their clip, and those that are hidden by something it takes for opaque, which nothing with a radius is.
        Rectangle {
            x: -page.margin
            width: page.width
            height: parent.height
            visible: page.headStays
            radius: 1
            color: Theme.canvas

            MouseArea {
                anchors.fill: parent
                hoverEnabled: true
            }
        }

        PageHeading {
            y: 20
            width: parent.width
            title: qsTr("Agenda")

            ActionButton {
                objectName: "addMeeting"
                size: ActionButton.Heading
                text: qsTr("Add meeting")
                icon: Icons.plus
                onClicked: page.addMeetingRequested()
            }
        }

        HeroCard {
            id: hero

            objectName: "hero"
            y: 80
            width: parent.width
            visible: page.agenda.next.face.exists
            next: page.agenda.next
        }
    }

    Flickable {
        id: scroll

        readonly property real bodyY: page.headStays ? page.edge : page.bodyTop

        objectName: "scroll"
        y: page.headStays ? page.bodyTop - page.edge : 0
        width: page.width
        height: page.height - y
        contentWidth: width
        contentHeight: Math.max(page.isWide ? body.y + body.height : 0, panels.restY + panels.height) + 26
        clip: !page.headStays
        boundsBehavior: Flickable.StopAtBounds
        flickableDirection: Flickable.VerticalFlick

        T.ScrollBar.vertical: ScrollThumb {
            parent: page
            x: page.width - page.margin + 8
            y: scroll.y + page.edge
            z: 2
            height: scroll.height - 2 * page.edge
        }

        Item {
            id: body

            x: page.margin
            y: scroll.bodyY
            width: page.listWidth
            height: page.isListed ? list.height : emptyCard.height

            MeetingColumn {
                id: list

                objectName: "list"
                width: parent.width
                height: implicitHeight
                visible: page.isListed
                rows: page.agenda.meetings
                viewTop: scroll.contentY - body.y
                viewHeight: scroll.height
                delegate: MeetingItem {}
                onShifted: by => scroll.contentY = Math.max(0, scroll.contentY + by)

                Accessible.role: Accessible.List
                Accessible.name: qsTr("Meetings")
            }

            EmptyCard {
                id: emptyCard

                width: parent.width
                height: page.isWide ? Math.max(implicitHeight, scroll.height - body.y - 26) : implicitHeight
                visible: !page.isListed
                empty: page.agenda.empty
                onAddMeetingRequested: page.addMeetingRequested()
                onCalendarsRequested: page.calendarsRequested()
            }
        }

        AgendaPanels {
            id: panels

            /// While nothing is scrolled.
            readonly property real restY: page.isWide ? body.y : body.y + body.height + 20
            /// Beside the list they stay in sight; if they are too high, by their lower edge.
            readonly property real heldY: scroll.contentY
                + Math.min(page.headStays ? page.edge : 20, scroll.height - height - 26)

            x: page.isWide ? page.margin + page.contentWidth - width : page.margin
            y: page.isWide ? Math.max(restY, heldY) : restY
            width: page.isWide ? 264 : page.contentWidth
            height: implicitHeight
            agenda: page.agenda
            isBeside: page.isWide
        }
    }

    EdgeFade {
        anchors.bottom: parent.bottom
        z: 1
        width: page.width
        visible: !scroll.atYEnd
    }

    FocusFollower {
        y: scroll.y
        width: page.width
        height: scroll.height
        content: page.headStays ? scroll.contentItem : page
        onScrollWanted: by => scroll.contentY = Math.max(0, Math.min(scroll.contentHeight - scroll.height,
                                                                    scroll.contentY + by))
    }
}

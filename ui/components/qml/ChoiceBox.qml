// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// A labelled choice of one among several texts.
FocusScope {
    id: box

    required property string label
    property alias model: choice.model
    property alias currentIndex: choice.currentIndex
    property alias textRole: choice.textRole
    readonly property alias popup: choice.popup

    /// The person has chosen.
    signal activated(int index)

    implicitWidth: 180
    implicitHeight: choice.y + choice.height

    Label {
        id: caption

        width: parent.width
        style: Label.SmallStrong
        text: box.label
        Accessible.ignored: true
    }

    T.ComboBox {
        id: choice

        objectName: "choice"
        y: caption.height + 7
        width: parent.width
        implicitHeight: 42
        leftPadding: 14
        rightPadding: 40
        focus: true
        onActivated: index => box.activated(index)
        Accessible.name: box.label

        contentItem: Label {
            verticalAlignment: Text.AlignVCenter
            text: choice.displayText
            color: choice.enabled ? Theme.text : Theme.text3
            Accessible.ignored: true
        }

        background: FieldFrame {
            focused: choice.visualFocus || choice.popup.visible
        }

        indicator: LineIcon {
            x: choice.width - width - 12
            anchors.verticalCenter: parent ? parent.verticalCenter : undefined
            width: 16
            height: 16
            outline: Icons.chevronDown
            color: Theme.text2
        }

        delegate: T.ItemDelegate {
            id: row

            required property int index

            width: ListView.view ? ListView.view.width : 0
            implicitHeight: 36
            leftPadding: 10
            rightPadding: 10
            highlighted: choice.highlightedIndex === index
            text: choice.textAt(index)

            contentItem: Label {
                verticalAlignment: Text.AlignVCenter
                style: choice.currentIndex === row.index ? Label.Strong : Label.Body
                text: row.text
                Accessible.ignored: true
            }
            background: Rectangle {
                radius: 8
                color: row.highlighted ? Theme.hover : Theme.faded(Theme.hover, 0)
            }
        }

        popup: T.Popup {
            y: choice.height + 6
            width: choice.width
            height: Math.min(list.contentHeight + topPadding + bottomPadding,
                             choice.Window.window ? choice.Window.window.height - topMargin - bottomMargin : 400)
            margins: 8
            padding: 6

            contentItem: ListView {
                id: list

                clip: true
                boundsBehavior: Flickable.StopAtBounds
                model: choice.popup.visible ? choice.delegateModel : null
                currentIndex: choice.highlightedIndex
                highlightMoveDuration: 0
                T.ScrollBar.vertical: ScrollThumb {}
            }
            background: Rectangle {
                radius: 14
                color: Theme.sheet
                border.width: 1
                border.color: Theme.dark ? Theme.sheetLine : Theme.line
            }
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components

/// A labelled choice of one among several texts.
FocusScope {
    id: box

    required property string label
    /// The texts.
    property alias model: choice.model
    property alias currentIndex: choice.currentIndex
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
        Accessible.description: displayText

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

        delegate: ChoiceRow {}

        popup: T.Popup {
            y: choice.height + 6
            width: choice.width
            height: Math.min(implicitContentHeight + topPadding + bottomPadding,
                             choice.Window.height - topMargin - bottomMargin)
            margins: 8
            padding: 6

            contentItem: ListView {
                implicitHeight: contentHeight
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

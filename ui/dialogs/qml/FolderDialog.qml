// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Dialogs

/// Lets the person walk through folders, or type a path, and take the one they are in.
Window {
    id: dialog

    required property FolderBrowser browser

    readonly property int gap: 12
    /// The one that will be taken: the folder the person is in, or what they point at in it.
    readonly property string pointedAt: list.current ? (folder === "/" ? "" : folder) + "/" + list.current : folder
    property string folder

    title: browser.title
    width: 560
    height: 460
    minimumWidth: 360
    minimumHeight: 300
    color: colours.window
    flags: Qt.Dialog
    visible: true

    onPointedAtChanged: path.text = pointedAt
    onClosing: browser.cancel()
    Component.onCompleted: requestActivate()

    SystemPalette { id: colours }

    Connections {
        target: dialog.browser

        function onChanged() {
            if (dialog.folder !== dialog.browser.folder) {
                dialog.folder = dialog.browser.folder;
                list.show(dialog.browser.entries);
            }
            path.text = dialog.pointedAt;
        }
    }

    FocusScope {
        id: content

        anchors.fill: parent
        anchors.margins: dialog.gap
        focus: true
        Keys.onEscapePressed: dialog.browser.cancel()

        Text {
            id: message

            width: parent.width
            text: dialog.browser.message
            textFormat: Text.PlainText
            wrapMode: Text.Wrap
            color: colours.windowText
        }

        DialogButton {
            id: up

            anchors.top: message.bottom
            anchors.topMargin: dialog.gap
            height: pathFrame.height
            text: qsTr("Up")
            onActivated: dialog.browser.leave()
        }

        Rectangle {
            id: pathFrame

            anchors.top: up.top
            anchors.left: up.right
            anchors.leftMargin: dialog.gap / 2
            anchors.right: parent.right
            height: path.implicitHeight + 14
            radius: 4
            color: colours.base
            border.color: path.activeFocus ? colours.highlight : colours.mid

            TextInput {
                id: path

                anchors.fill: parent
                anchors.margins: 7
                clip: true
                activeFocusOnTab: true
                selectByMouse: true
                color: colours.text
                selectionColor: colours.highlight
                selectedTextColor: colours.highlightedText
                onAccepted: dialog.browser.open(text)
                Accessible.role: Accessible.EditableText
                Accessible.name: qsTr("Folder")
            }
        }

        Rectangle {
            anchors.top: pathFrame.bottom
            anchors.bottom: note.top
            anchors.topMargin: dialog.gap
            anchors.bottomMargin: dialog.gap
            width: parent.width
            radius: 4
            color: colours.base
            border.color: list.activeFocus ? colours.highlight : colours.mid

            FolderList {
                id: list

                anchors.fill: parent
                anchors.margins: 4
                focus: true
                onOpened: name => dialog.browser.enter(name)
                onUpwards: dialog.browser.leave()
            }
        }

        Text {
            id: note

            anchors.bottom: parent.bottom
            anchors.left: parent.left
            anchors.right: buttons.left
            anchors.rightMargin: dialog.gap
            height: buttons.height
            verticalAlignment: Text.AlignVCenter
            text: dialog.browser.note
            textFormat: Text.PlainText
            elide: Text.ElideRight
            color: colours.windowText
            Accessible.role: Accessible.AlertMessage
            Accessible.name: text
        }

        Row {
            id: buttons

            anchors.bottom: parent.bottom
            anchors.right: parent.right
            spacing: dialog.gap / 2

            DialogButton {
                text: qsTr("Cancel")
                onActivated: dialog.browser.cancel()
            }

            DialogButton {
                text: dialog.browser.confirmText
                isDefault: true
                onActivated: dialog.browser.confirm(path.text)
            }
        }
    }
}

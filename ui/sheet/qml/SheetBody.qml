// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components
import Quorvane.Sheet

/// What stands on the sheet; it scrolls where the window is too low for it.
Flickable {
    id: body

    required property MeetingForm form

    readonly property real padding: 28

    signal cancelled

    function begin() {
        title.forceActiveFocus(Qt.TabFocusReason);
    }

    function reveal(item: Item) {
        const area = item.mapToItem(content, 0, 0, item.width, item.height);
        const wanted = Math.min(area.y - padding, Math.max(contentY, area.y + area.height + padding - height));
        contentY = Math.max(0, Math.min(wanted, contentHeight - height));
    }

    contentHeight: content.height
    interactive: contentHeight > height
    boundsBehavior: Flickable.StopAtBounds
    clip: interactive
    T.ScrollBar.vertical: ScrollThumb {}

    Item {
        id: content

        width: body.width
        height: buttons.y + buttons.height + body.padding + 3

        Label {
            id: heading

            x: body.padding
            y: 26
            width: closing.x - x
            style: Label.Heading
            text: qsTr("Add a meeting")
            Accessible.role: Accessible.Heading
            Accessible.name: text
        }

        IconButton {
            id: closing

            objectName: "close"
            x: parent.width - width - 18
            y: 20
            icon: Icons.close
            name: qsTr("Close")
            onClicked: body.cancelled()
        }

        Label {
            id: explanation

            x: body.padding
            y: heading.y + heading.height + 6
            width: parent.width - 2 * x - 16
            text: qsTr("Schedule an alert even if the meeting isn’t in your calendar. This won’t create or change a calendar event.")
            color: Theme.text2
            wrapMode: Text.Wrap
            lineHeight: 20
            lineHeightMode: Text.FixedHeight
            Accessible.role: Accessible.StaticText
            Accessible.name: text
        }

        Column {
            id: fields

            x: body.padding
            y: explanation.y + explanation.height + 21
            width: parent.width - 2 * x
            spacing: 16

            TextBox {
                id: title

                objectName: "title"
                width: parent.width
                label: qsTr("Meeting name")
                placeholder: qsTr("For example, coffee with the team")
                text: body.form.title
                error: body.form.titleError
                onEdited: text => body.form.title = text
                onActiveFocusChanged: {
                    if (!activeFocus)
                        body.form.leaveTitle();
                }
            }

            Row {
                width: parent.width
                spacing: 14

                DateTimeField {
                    id: starts

                    width: Math.floor(0.58 * (parent.width - parent.spacing))
                    label: qsTr("Starts")
                    choice: body.form.startChoice
                    error: body.form.startError
                }

                ChoiceBox {
                    width: parent.width - starts.width - parent.spacing
                    label: qsTr("Duration")
                    model: body.form.durationLabels
                    currentIndex: body.form.durationIndex
                    onActivated: index => body.form.chooseDuration(index)
                }
            }

            TextBox {
                objectName: "link"
                width: parent.width
                label: qsTr("Meeting link (optional)")
                placeholder: "https://"
                icon: Icons.link
                hint: qsTr("Use an HTTPS, Zoom or Teams link.")
                text: body.form.link
                error: body.form.linkError
                onEdited: text => body.form.link = text
                onActiveFocusChanged: {
                    if (!activeFocus)
                        body.form.leaveLink();
                }
            }
        }

        SheetNote {
            id: note

            x: body.padding
            y: fields.y + fields.height + 20
            width: fields.width
            text: qsTr("Screen alert 1 minute before. Phone reminders 10 and 2 minutes before when phone delivery is connected.")
        }

        Row {
            id: buttons

            anchors.right: parent.right
            anchors.rightMargin: body.padding
            y: note.y + note.height + 22
            spacing: 10

            ActionButton {
                objectName: "cancel"
                height: 42
                text: qsTr("Cancel")
                kind: ActionButton.Quiet
                onClicked: body.cancelled()
            }

            ActionButton {
                objectName: "add"
                height: 42
                text: qsTr("Add to alert schedule")
                kind: ActionButton.Primary
                enabled: body.form.canSave
                onClicked: body.form.save()
            }
        }
    }
}

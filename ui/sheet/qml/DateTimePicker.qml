// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import QtQuick.Templates as T
import Quorvane.Components
import Quorvane.Sheet

/// Opens the picker beside its parent, within the window.
T.Popup {
    id: picker

    required property DateTimeChoice choice

    implicitWidth: contentItem.implicitWidth + leftPadding + rightPadding
    implicitHeight: contentItem.implicitHeight + topPadding + bottomPadding
    margins: 8
    padding: 14
    focus: true
    closePolicy: T.Popup.CloseOnPressOutsideParent
    onAboutToShow: (contentItem as PickerPlace).make()
    onOpened: (contentItem as PickerPlace).begin()
    onClosed: (contentItem as PickerPlace).discard()

    contentItem: PickerPlace {
        choice: picker.choice
        onDone: picker.close()
    }

    background: Rectangle {
        radius: 16
        color: Theme.sheet
        border.width: 1
        border.color: Theme.dark ? Theme.lineStrong : Theme.line
    }
}

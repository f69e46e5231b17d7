// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A button's icon and words, centred; too narrow, the words are cut.
Item {
    id: content

    required property string text
    required property string icon
    required property int iconSide
    required property int fontSize
    required property color ink

    readonly property int iconRoom: icon === "" ? 0 : iconSide + row.spacing

    implicitWidth: iconRoom + Math.ceil(words.implicitWidth)
    implicitHeight: words.implicitHeight

    Row {
        id: row

        anchors.centerIn: parent
        spacing: 8

        LineIcon {
            anchors.verticalCenter: parent.verticalCenter
            visible: content.icon !== ""
            width: content.iconSide
            height: content.iconSide
            outline: content.icon
            color: content.ink
        }

        Label {
            id: words

            anchors.verticalCenter: parent.verticalCenter
            width: Math.max(0, Math.min(Math.ceil(implicitWidth), content.width - content.iconRoom))
            style: Label.Strong
            font.pixelSize: content.fontSize
            text: content.text
            color: content.ink
            Accessible.ignored: true
        }
    }
}

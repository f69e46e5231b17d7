// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Alert
import Quorvane.Components

/// Headline, dial, title, time and hint. Scrolls vertically when `room` is too low for them.
Flickable {
    id: details

    required property Takeover takeover
    required property takeoverMetrics metrics
    required property color tint
    /// The height they may take.
    required property real room

    readonly property real heightBesideTitle: headline.height + dialSpace.height + time.height + hint.height
        + metrics.titleGap

    // Fonts round their lines up; half of the bottom margin makes up for it.
    height: contentHeight <= room + metrics.bottomMargin / 2 ? contentHeight : Math.max(0, Math.floor(room))
    contentWidth: width
    contentHeight: Math.round(column.height)
    flickableDirection: Flickable.VerticalFlick
    boundsBehavior: Flickable.StopAtBounds
    interactive: contentHeight > height
    clip: interactive

    Column {
        id: column

        width: details.width

        Text {
            id: headline

            objectName: "headline"
            width: parent.width
            bottomPadding: details.metrics.headlineGap
            text: details.takeover.headline
            textFormat: Text.PlainText
            color: Theme.faded(Theme.cream, 0.90)
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            font.family: Theme.textFace
            font.pixelSize: details.metrics.headlineFont
            font.weight: Font.DemiBold
        }

        Item {
            id: dialSpace

            width: parent.width
            height: details.metrics.dialSide + details.metrics.dialGap

            CountdownDial {
                objectName: "dial"
                anchors.horizontalCenter: parent.horizontalCenter
                width: details.metrics.dialSide
                height: details.metrics.dialSide
                takeover: details.takeover
                tint: details.tint
                reach: details.metrics.headlineGap
            }
        }

        Text {
            objectName: "title"
            width: parent.width
            bottomPadding: details.metrics.titleGap
            text: details.takeover.title
            textFormat: Text.PlainText
            color: Theme.cream
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            elide: Text.ElideRight
            maximumLineCount: details.metrics.titleLines(details.room - details.heightBesideTitle)
            lineHeight: details.metrics.titleLineFactor
            font.family: Theme.textFace
            font.pixelSize: details.metrics.titleFont
            font.weight: details.metrics.titleWeight
            font.letterSpacing: details.metrics.titleTracking
        }

        Text {
            id: time

            objectName: "time"
            width: parent.width
            bottomPadding: details.metrics.timeGap
            text: details.takeover.timeRange
            textFormat: Text.PlainText
            color: details.tint
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            font.family: Theme.textFace
            font.pixelSize: details.metrics.timeFont
            font.weight: Font.DemiBold
        }

        Text {
            id: hint

            objectName: "hint"
            width: parent.width
            text: qsTr("Acknowledge or snooze to continue.")
            textFormat: Text.PlainText
            color: Theme.faded(Theme.cream, 0.66)
            horizontalAlignment: Text.AlignHCenter
            wrapMode: Text.Wrap
            font.family: Theme.textFace
            font.pixelSize: details.metrics.hintFont
            font.weight: Font.Medium
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Agenda

/// The panels beside the list, or below it, where there is room for two across.
Item {
    id: panels

    required property Agenda agenda
    required property bool isBeside

    readonly property bool areAcross: !isBeside && width >= 560
    readonly property real panelWidth: areAcross ? (width - 16) / 2 : width
    readonly property real tallest: Math.max(protection.implicitHeight, sources.implicitHeight)

    implicitHeight: areAcross ? tallest : sources.y + sources.height

    ProtectionCard {
        id: protection

        width: panels.panelWidth
        height: panels.areAcross ? panels.tallest : implicitHeight
        protection: panels.agenda.protection
    }

    SourcesCard {
        id: sources

        x: panels.areAcross ? panels.panelWidth + 16 : 0
        y: panels.areAcross ? 0 : protection.height + 16
        width: panels.panelWidth
        height: panels.areAcross ? panels.tallest : implicitHeight
        sources: panels.agenda.sources
    }
}

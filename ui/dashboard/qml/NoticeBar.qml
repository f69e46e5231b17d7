// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components
import Quorvane.Dashboard

/// The place of the notice above the page, which moves down for it.
Item {
    id: bar

    required property Banner banner
    required property bool isNarrow

    readonly property real arrival: Theme.reduceMotion ? Math.ceil(notice.presence) : notice.presence

    // The page's own heading begins 20 below; 14 are enough under the notice.
    height: notice.height + Math.round(14 * arrival)

    NoticeBanner {
        id: notice

        y: Math.round(20 * bar.arrival)
        width: parent.width
        height: implicitHeight
        narrow: bar.isNarrow
        kind: bar.banner.isProblem ? NoticeBanner.Problem : NoticeBanner.Success
        text: bar.banner.text
        actionText: bar.banner.actionText
        onAction: bar.banner.act()
        onDismissed: bar.banner.dismiss()
    }

    Binding {
        target: bar.banner
        property: "held"
        value: notice.attended
    }
}

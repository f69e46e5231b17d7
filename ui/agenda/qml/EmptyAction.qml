// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// A button of the empty agenda. The first that is offered is the one to press.
ActionButton {
    required property bool offered
    required property bool isFirst

    /// What it takes of its row.
    readonly property real room: offered ? width + 10 : 0

    visible: offered
    size: ActionButton.Heading
    kind: isFirst ? ActionButton.Primary : ActionButton.Quiet
}

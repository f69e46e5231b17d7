// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Sheet

/// Where the picker's body stands while the picker is open. It is made anew each time: closing takes it out of its
/// window, and a Shape of Qt 6.4 that comes back into one may draw from what is gone.
Loader {
    id: place

    required property DateTimeChoice choice

    signal done

    function make() {
        setSource("PickerBody.qml", {
            choice: choice
        });
    }

    function begin() {
        (item as PickerBody).begin();
    }

    function discard() {
        source = "";
    }

    focus: true

    Connections {
        target: place.item as PickerBody

        function onDone() {
            place.done();
        }
    }
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

import QtQuick
import Quorvane.Components

/// Every control in each of its states.
Rectangle {
    id: board

    readonly property var states: ["Default", "Hover", "Pressed", "Focus", "Disabled"]
    readonly property var buttons: [{ text: "Save", icon: "", kind: ActionButton.Primary },
        { text: "Pause", icon: Icons.pause, kind: ActionButton.Secondary },
        { text: "Cancel", icon: "", kind: ActionButton.Quiet }, { text: "Remove", icon: "", kind: ActionButton.Danger }]
    readonly property var cells: everyCell()

    function everyCell() : var {
        const made = [];
        for (let row = 0; row < buttons.length; ++row) {
            for (let column = 0; column < states.length; ++column)
                made.push({ state: states[column], column: column, row: row, about: buttons[row] });
        }
        return made;
    }

    color: Theme.canvas

    Label {
        x: 24
        y: 366
        style: Label.CardHead
        text: "Buttons"
    }

    Repeater {
        model: board.states

        Label {
            required property int index
            required property string modelData

            x: 24 + 160 * index
            y: 398
            style: Label.Caption
            font.weight: Font.Medium
            color: Theme.text3
            text: modelData
        }
    }

    Repeater {
        model: board.cells

        ActionButton {
            required property var modelData

            objectName: text + " " + modelData.state
            x: 24 + 160 * modelData.column
            y: 429 + 52 * modelData.row
            text: modelData.about.text
            icon: modelData.about.icon
            kind: modelData.about.kind
            showsHover: modelData.state === "Hover"
            showsPress: modelData.state === "Pressed"
            showsFocus: modelData.state === "Focus"
            enabled: modelData.state !== "Disabled"
        }
    }

    Label {
        x: 24
        y: 654
        style: Label.CardHead
        text: "Switch"
    }

    Repeater {
        model: 5

        ToggleSwitch {
            required property int index

            objectName: "switch " + index
            x: 110 + 56 * index
            y: 647
            name: "Switch " + index
            checked: index % 2 === 0
            showsFocus: index === 2 || index === 3
            enabled: index !== 4
        }
    }

    Repeater {
        model: [Icons.video, Icons.trash, Icons.refresh, Icons.close]

        IconButton {
            required property int index
            required property string modelData

            objectName: "icon " + index
            x: 420 + 46 * index
            y: 647
            icon: modelData
            name: "Icon " + index
            raised: index < 2
            ink: index === 0 ? Theme.text : Theme.text2
            showsFocus: index === 2
        }
    }

    Label {
        x: 880
        y: 366
        style: Label.CardHead
        text: "Fields"
    }

    TextBox {
        objectName: "field"
        x: 880
        y: 398
        width: 472
        label: "Meeting name"
        placeholder: "What should the alert say?"
    }

    TextBox {
        objectName: "focused field"
        x: 880
        y: 479
        width: 472
        focus: true
        label: "Focus"
        text: "Call the school"
    }

    TextBox {
        objectName: "wrong field"
        x: 880
        y: 560
        width: 472
        label: "Error"
        text: "zoom/j/8812"
        icon: Icons.link
        error: "Start the link with https://"
    }
}

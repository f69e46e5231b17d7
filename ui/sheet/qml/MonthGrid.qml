// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

pragma ComponentBehavior: Bound

import QtQuick
import Quorvane.Components
import Quorvane.Sheet

/// The days of a month. Arrows, Page Up and Down, Home and End choose another one.
FocusScope {
    id: grid

    required property DateTimeChoice choice

    readonly property int cellWidth: 43
    readonly property int cellHeight: 34

    implicitWidth: 7 * cellWidth
    implicitHeight: names.height + 6 * cellHeight
    Accessible.role: Accessible.Grouping
    Accessible.name: grid.choice.monthTitle

    Row {
        id: names

        height: 22

        Repeater {
            model: grid.choice.weekdays

            Label {
                required property string modelData

                width: grid.cellWidth
                height: names.height
                horizontalAlignment: Text.AlignHCenter
                verticalAlignment: Text.AlignVCenter
                style: Label.Caption
                text: modelData
                color: Theme.text3
                // Each day says its weekday.
                Accessible.ignored: true
            }
        }
    }

    GridView {
        id: days

        objectName: "days"
        y: names.height
        width: parent.width
        height: 6 * grid.cellHeight
        cellWidth: grid.cellWidth
        cellHeight: grid.cellHeight
        focus: true
        activeFocusOnTab: true
        interactive: false
        keyNavigationEnabled: false
        highlightMoveDuration: 0
        model: grid.choice.days
        currentIndex: grid.choice.dayRow

        Keys.onLeftPressed: grid.choice.moveDays(-1)
        Keys.onRightPressed: grid.choice.moveDays(1)
        Keys.onUpPressed: grid.choice.moveDays(-7)
        Keys.onDownPressed: grid.choice.moveDays(7)
        Keys.onPressed: event => {
            event.accepted = true;
            switch (event.key) {
            case Qt.Key_PageUp:
                grid.choice.moveMonths(-1);
                break;
            case Qt.Key_PageDown:
                grid.choice.moveMonths(1);
                break;
            case Qt.Key_Home:
                grid.choice.moveToWeekBegin();
                break;
            case Qt.Key_End:
                grid.choice.moveToWeekEnd();
                break;
            default:
                event.accepted = false;
            }
        }

        delegate: DayCell {
            width: grid.cellWidth
            height: grid.cellHeight
            onClicked: {
                grid.choice.chooseDay(index);
                days.forceActiveFocus(Qt.MouseFocusReason);
            }
        }
    }
}

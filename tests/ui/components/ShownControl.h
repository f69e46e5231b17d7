// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/ViewPicture.h"

#include <QAccessible>
#include <QTest>

namespace quorvane {

/// One control called "it" in a window; what it says is counted in `answers`, the last word of it is `last`.
struct ShownControl : ViewPicture
{
    bool showControl(const QByteArray &control, QSize size = {400, 300})
    {
        return showText(
            "import QtQuick\nimport Quorvane.Components\n"
            "Item { id: root; property int answers: 0; property string last; property string draft\n"
            "function say(word) { ++answers; last = word }\n" +
                control + "}",
            size);
    }
    [[nodiscard]] QQuickItem *it() const { return item("it"); }
    [[nodiscard]] int answers() const { return view.rootObject()->property("answers").toInt(); }
    [[nodiscard]] QString last() const { return view.rootObject()->property("last").toString(); }
    [[nodiscard]] static QAccessibleInterface &assistive(QObject *control)
    {
        return *QAccessible::queryAccessibleInterface(control);
    }
    [[nodiscard]] static QPoint middle(const QQuickItem *control) { return area(control).center().toPoint(); }
    void click(const QQuickItem *control) { QTest::mouseClick(&view, Qt::LeftButton, {}, middle(control)); }
    void press(Qt::Key key) { QTest::keyClick(&view, key); }
    void type(const char *letters)
    {
        for (const char *letter = letters; *letter; ++letter)
            QTest::keyClick(&view, *letter);
    }
    [[nodiscard]] bool hasFocus(const QQuickItem *control) const { return control->hasActiveFocus(); }
};

} // namespace quorvane

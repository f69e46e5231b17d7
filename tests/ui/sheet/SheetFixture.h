// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/ModelFixture.h"
#include "tests/support/ViewPicture.h"
#include "ui/sheet/MeetingForm.h"
#include "ui/sheet/SheetView.h"

namespace quorvane {

/// The real sheet in a real window, over a model of the test's. It is opened with something behind it.
struct SheetFixture : ModelFixture
{
    explicit SheetFixture(Switch dark = Switch::on)
        : picture(dark)
    {
        SheetView::registerTypes();
    }

    /// The model must have been started.
    [[nodiscard]] bool open(QSize size = {1100, 780})
    {
        form = std::make_unique<MeetingForm>(*model);
        const QByteArray window = R"(
            import QtQuick
            import Quorvane.Components
            import Quorvane.Sheet
            Rectangle {
                id: window
                required property MeetingForm form
                property int dismissals: 0
                property int behind: 0
                color: Theme.canvas
                MouseArea {
                    objectName: "behind"
                    anchors.fill: parent
                    activeFocusOnTab: true
                    onClicked: ++window.behind
                }
                AddMeetingSheet {
                    anchors.fill: parent
                    form: window.form
                    onDismissed: ++window.dismissals
                }
            })";
        return picture.showText(window, size, {{QStringLiteral("form"), QVariant::fromValue(form.get())}});
    }

    void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&picture.view, static_cast<Qt::Key>(key), modifiers);
    }
    void type(const char *text)
    {
        for (const char *letter = text; *letter != '\0'; ++letter)
            QTest::keyClick(&picture.view, *letter);
    }
    void click(const QQuickItem *item)
    {
        QTest::mouseClick(&picture.view, Qt::LeftButton, {}, ViewPicture::area(item).center().toPoint());
    }
    void clickOn(const char *name) { click(picture.item(name)); }
    [[nodiscard]] int count(const char *property) const
    {
        return picture.view.rootObject()->property(property).toInt();
    }
    /// The objectName of the field or button that has the keyboard.
    [[nodiscard]] QString focused() const
    {
        const QString input = QStringLiteral("input");
        const QQuickItem *item = picture.view.activeFocusItem();
        while (item && (item->objectName().isEmpty() || item->objectName() == input))
            item = item->parentItem();
        return item ? item->objectName() : QString();
    }

    std::unique_ptr<MeetingForm> form;
    // The view goes before what it shows.
    ViewPicture picture;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/ModelFixture.h"
#include "tests/support/ViewPicture.h"
#include "ui/settings/SettingsForm.h"
#include "ui/settings/SettingsView.h"

#include <QAccessible>
#include <QTest>

#include <memory>

namespace quorvane {

/// The settings page in a window, over a real model with a keyring in memory.
struct SettingsWindow
{
    explicit SettingsWindow(UpdateSettings *updater = nullptr)
        : updates(updater)
    {
        using namespace Qt::StringLiterals;
        f.keyring.values = {{Secrets::pushoverUser, QByteArray(26, 'u') + "u7Qe"},
                            {Secrets::serverToken, QByteArray(36, 's') + "9f2c"}};
        f.addSetting(u"[General]\nserverURL=https://localhost:1\nuploadMacSnapshot=true"_s);
        f.start();
    }

    void open(QSize size, Switch dark = Switch::on)
    {
        using namespace Qt::StringLiterals;
        picture.reset();
        form = std::make_unique<SettingsForm>(*f.model, updates);
        picture = std::make_unique<ViewPicture>(dark);
        SettingsView::registerTypes();
        picture->view.setColor(dark == Switch::on ? QColor(0x12, 0x10, 0x0d) : QColor(0xfa, 0xf7, 0xf2));
        QVERIFY(picture->show(QUrl(u"qrc:/Quorvane/Settings/SettingsPage.qml"_s), size,
                              {{u"settings"_s, QVariant::fromValue(form.get())}}));
    }

    /// With QUORVANE_PICTURES, leaves a picture in that folder.
    void keepPicture() const
    {
        using namespace Qt::StringLiterals;
        const QString folder = qEnvironmentVariable("QUORVANE_PICTURES");
        if (!folder.isEmpty())
            picture->image().save(
                u"%1/settings-%2-%3.png"_s.arg(folder, QLatin1StringView(QTest::currentDataTag()))
                    .arg(picture->view.width()));
    }

    /// Every word is whole and between the window's sides.
    void checkEveryWord() const
    {
        const auto items = picture->view.rootObject()->findChildren<QQuickItem *>();
        for (QQuickItem *item : items) {
            if (!item->isVisible() || !item->inherits("QQuickText"))
                continue;
            const QByteArray words = item->property("text").toString().toUtf8();
            QVERIFY2(!item->property("truncated").toBool(), words);
            const QRectF area = ViewPicture::area(item);
            QVERIFY2(area.left() >= 0 && area.right() <= picture->view.width(), words);
        }
    }

    void press(Qt::Key key) const { QTest::keyClick(&picture->view, key); }
    void type(const QByteArray &letters) const
    {
        for (const char letter : letters)
            QTest::keyClick(&picture->view, letter);
    }
    /// Presses Tab until the keyboard is at the control of this name.
    void tabTo(const QString &name) const
    {
        for (int step = 0; step < 30 && current() != name; ++step)
            press(Qt::Key_Tab);
        QCOMPARE(current(), name);
    }
    /// The name by which a screen reader calls the control that has the keyboard.
    [[nodiscard]] QString current() const
    {
        const auto *face = QAccessible::queryAccessibleInterface(picture->view.activeFocusItem());
        return face ? face->text(QAccessible::Name) : QString();
    }

    /// Null for a copy that does not update itself; outlives this.
    UpdateSettings *updates;
    ModelFixture f;
    std::unique_ptr<SettingsForm> form;
    std::unique_ptr<ViewPicture> picture;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The tray's icon, as pixels and by name.
#include "ui/components/Appearance.h"
#include "ui/tray/linux/TrayPicture.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

struct Pixels
{
    QRgb ink = 0;
    int soft = 0;
};

Pixels pixelsOf(const QImage &image)
{
    Pixels found;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            found.soft += qAlpha(pixel) > 0 && qAlpha(pixel) < 255 ? 1 : 0;
            if (qAlpha(pixel) == 255)
                found.ink = pixel;
        }
    }
    return found;
}

constexpr QRgb light = 0xfff2f2f2;
constexpr QRgb dark = 0xff242424;

} // namespace

class TrayPictureTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void itIsSharpInEverySizeThatPanelsAskFor()
    {
        const TrayPicture picture;
        for (const TrayState state : {TrayState::normal, TrayState::paused, TrayState::attention}) {
            const QIcon icon = picture.of(state, TrayKind::notifierItem);
            for (const int side : {16, 22, 24, 32, 44, 48}) {
                const QImage image = icon.pixmap(side).toImage();
                QCOMPARE(image.size(), QSize(side, side));
                const Pixels pixels = pixelsOf(image);
                QCOMPARE(pixels.ink, light);
                // Edges only: what is scaled is soft all over.
                QVERIFY(pixels.soft < side * 10);
            }
        }
    }

    void itIsSeenOnThePanel_data()
    {
        QTest::addColumn<QString>("desktop");
        QTest::addColumn<bool>("isDark");
        QTest::addColumn<QRgb>("ink");
        QTest::addColumn<bool>("colorsNames");
        QTest::newRow("GNOME's panel is dark on light desktops")
            << u"ubuntu:GNOME"_s << false << light << true;
        QTest::newRow("Plasma's is as the desktop") << u"KDE"_s << false << dark << true;
        QTest::newRow("dark Plasma") << u"KDE"_s << true << light << true;
        QTest::newRow("LXQt's is, and takes colours as they are") << u"LXQt"_s << false << dark << false;
        QTest::newRow("a bar of some window manager") << QString() << false << light << false;
    }
    void itIsSeenOnThePanel()
    {
        QFETCH(QString, desktop);
        QFETCH(bool, isDark);
        Appearance appearance;
        appearance.startDark(isDark);
        const TrayPicture picture(desktop, appearance);
        QIcon::setThemeSearchPaths({});
        const QIcon drawn = picture.of(TrayState::normal, TrayKind::notifierItem);
        QTEST(pixelsOf(drawn.pixmap(22).toImage()).ink, "ink");
        const QString name = u"me.tarnel.Quorvane-symbolic"_s;
        install(name);
        QTEST(picture.of(TrayState::normal, TrayKind::notifierItem).name() == name, "colorsNames");
        QVERIFY(picture.of(TrayState::normal, TrayKind::embedded).name().isEmpty());
    }

private:
    /// Our icon, as our package installs it.
    void install(const QString &name)
    {
        const QDir theme(m_themes.filePath(u"hicolor"_s));
        QVERIFY(theme.mkpath(u"apps"_s));
        QFile index(theme.filePath(u"index.theme"_s));
        QVERIFY(index.open(QIODevice::WriteOnly));
        index.write("[Icon Theme]\nName=hicolor\nDirectories=apps\n[apps]\nSize=22\nType=Scalable\n");
        QFile::copy(u":/quorvane/tray/%1.svg"_s.arg(name), theme.filePath(u"apps/%1.svg"_s.arg(name)));
        QIcon::setThemeSearchPaths({m_themes.path()});
        QIcon::setThemeName(u"hicolor"_s);
    }

    QTemporaryDir m_themes;
};

QTEST_MAIN(TrayPictureTest)
#include "tray_picture_test.moc"

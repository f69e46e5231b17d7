// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The tray's icon as pixels, for panels without our icons in their theme.
#include "ui/components/Appearance.h"
#include "ui/tray/linux/TrayPicture.h"

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
        QTest::newRow("GNOME's panel is dark on light desktops") << u"ubuntu:GNOME"_s << false << light;
        QTest::newRow("Plasma's is as the desktop") << u"KDE"_s << false << dark;
        QTest::newRow("dark Plasma") << u"KDE"_s << true << light;
        QTest::newRow("a bar of some window manager") << QString() << false << light;
    }
    void itIsSeenOnThePanel()
    {
        QFETCH(QString, desktop);
        QFETCH(bool, isDark);
        Appearance appearance;
        appearance.startDark(isDark);
        const QIcon icon = TrayPicture(desktop, appearance).of(TrayState::normal, TrayKind::notifierItem);
        QTEST(pixelsOf(icon.pixmap(22).toImage()).ink, "ink");
    }
};

QTEST_MAIN(TrayPictureTest)
#include "tray_picture_test.moc"

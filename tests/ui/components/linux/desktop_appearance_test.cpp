// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Light and dark as the desktop says it, on a private session bus with a portal that answers as desktops do.
#include "ui/components/linux/DesktopAppearance.h"

#include "ui/components/Appearance.h"

#include <QDBusConnection>
#include <QDBusMetaType>
#include <QGuiApplication>
#include <QPalette>
#include <QSignalSpy>
#include <QTest>

#include <memory>

using namespace quorvane;
using namespace Qt::StringLiterals;

using PortalSettings = QMap<QString, QVariantMap>;

namespace {

const QString space = u"org.freedesktop.appearance"_s;
const QString key = u"color-scheme"_s;
const QString serviceName = u"org.freedesktop.portal.Desktop"_s;

QDBusConnection serviceBus()
{
    return QDBusConnection::connectToBus(QDBusConnection::SessionBus, u"portal"_s);
}

QPalette palette(Qt::GlobalColor text, Qt::GlobalColor base)
{
    QPalette colors;
    colors.setColor(QPalette::Text, text);
    colors.setColor(QPalette::Base, base);
    return colors;
}

} // namespace

/// The settings part of a desktop portal.
class PortalService final : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.portal.Settings")

public:
    PortalSettings settings;
    int questions = 0;

    void change(const QString &where, const QString &what, uint value)
    {
        Q_EMIT SettingChanged(where, what, QDBusVariant(value));
    }

public Q_SLOTS:
    PortalSettings ReadAll(const QStringList &)
    {
        ++questions;
        return settings;
    }

Q_SIGNALS:
    void SettingChanged(const QString &space, const QString &key, const QDBusVariant &value);
};

class DesktopAppearanceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup() { serviceBus().unregisterService(serviceName); }
    void theDesktopsSchemeIsTakenOn_data();
    void theDesktopsSchemeIsTakenOn();
    void aChangeIsFadedTo();
    void withoutAPortalThePaletteIsFollowed();

private:
    PortalService m_portal;
    /// As at a program's start: made before anything else has shown QtDBus a type.
    Appearance m_earlyAppearance;
    std::unique_ptr<DesktopAppearance> m_early;
};

void DesktopAppearanceTest::initTestCase()
{
    m_early = std::make_unique<DesktopAppearance>(m_earlyAppearance);
    qDBusRegisterMetaType<PortalSettings>();
    QVERIFY(serviceBus().registerObject(u"/org/freedesktop/portal/desktop"_s, &m_portal,
                                        QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals));
}

void DesktopAppearanceTest::init()
{
    QVERIFY(serviceBus().registerService(serviceName));
    m_portal.questions = 0;
    QGuiApplication::setPalette(palette(Qt::black, Qt::white));
}

void DesktopAppearanceTest::theDesktopsSchemeIsTakenOn_data()
{
    QTest::addColumn<PortalSettings>("settings");
    QTest::addColumn<bool>("darkPalette");
    QTest::addColumn<bool>("dark");
    const auto scheme = [](uint value) { return PortalSettings{{space, {{key, value}}}}; };
    QTest::newRow("dark") << scheme(1) << false << true;
    QTest::newRow("light, whatever the palette") << scheme(2) << true << false;
    QTest::newRow("no preference on a light palette") << scheme(0) << false << false;
    QTest::newRow("no preference on a dark palette") << scheme(0) << true << true;
    QTest::newRow("a scheme of tomorrow") << scheme(7) << false << false;
    QTest::newRow("a portal that knows of none") << PortalSettings() << true << true;
}

void DesktopAppearanceTest::theDesktopsSchemeIsTakenOn()
{
    QFETCH(PortalSettings, settings);
    QFETCH(bool, darkPalette);
    QFETCH(bool, dark);
    m_portal.settings = settings;
    if (darkPalette)
        QGuiApplication::setPalette(palette(Qt::white, Qt::black));
    Appearance appearance;
    const DesktopAppearance desktop(appearance);
    QCOMPARE(appearance.isDark(), darkPalette);
    QTRY_COMPARE(m_portal.questions, 1);
    QTRY_COMPARE(appearance.isDark(), dark);
    // At once: nobody has looked yet.
    QCOMPARE(appearance.darkness(), dark ? 1 : 0);
}

void DesktopAppearanceTest::aChangeIsFadedTo()
{
    m_portal.settings = {{space, {{key, 2U}}}};
    Appearance appearance;
    const DesktopAppearance desktop(appearance);
    QTRY_COMPARE(m_portal.questions, 1);
    m_portal.change(space, u"accent-color"_s, 1);
    m_portal.change(u"org.example"_s, key, 1);
    m_portal.change(space, key, 1);
    QSignalSpy changes(&appearance, &Appearance::darkChanged);
    QTRY_VERIFY(appearance.isDark());
    QTRY_VERIFY(m_earlyAppearance.isDark());
    QCOMPARE(changes.count(), 1);
    QVERIFY(appearance.darkness() < 1);
    QTRY_COMPARE(appearance.darkness(), 1);
    // The portal says no preference any more: the palette counts.
    m_portal.change(space, key, 0);
    QTRY_VERIFY(!appearance.isDark());
}

void DesktopAppearanceTest::withoutAPortalThePaletteIsFollowed()
{
    serviceBus().unregisterService(serviceName);
    Appearance appearance;
    const DesktopAppearance desktop(appearance);
    QVERIFY(!appearance.isDark());
    QGuiApplication::setPalette(palette(Qt::white, Qt::black));
    QTRY_VERIFY(appearance.isDark());
    QGuiApplication::setPalette(palette(Qt::black, Qt::white));
    QTRY_VERIFY(!appearance.isDark());
}

QTEST_MAIN(DesktopAppearanceTest)
#include "desktop_appearance_test.moc"

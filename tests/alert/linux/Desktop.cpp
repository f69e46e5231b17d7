// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/alert/linux/Desktop.h"

#include <QCoreApplication>
#include <QDir>
#include <QGuiApplication>
#include <QPixmap>
#include <QTemporaryDir>
#include <QTest>

namespace quorvane {

namespace {

Desktop::Kind kindFromEnvironment()
{
    const QByteArray name = qgetenv("QUORVANE_DESKTOP");
    if (name == "sway")
        return Desktop::Kind::sway;
    if (name == "kwin")
        return Desktop::Kind::kwin;
    return name == "mutter" ? Desktop::Kind::mutter : Desktop::Kind::xorg;
}

QString tool(const QString &name)
{
    return QStringLiteral(QUORVANE_SOURCE "/tools/desktop/") + name;
}

} // namespace

Desktop::Desktop()
    : m_kind(kindFromEnvironment())
    , m_environment(QProcessEnvironment::systemEnvironment())
{
}

void Desktop::press(const QString &key) const
{
    QVERIFY(run(tool(QStringLiteral("press")), {key}));
}

QList<QColor> Desktop::colors() const
{
    const auto edge = [](const QImage &picture) { return picture.pixelColor(2, picture.height() / 2); };
    QList<QColor> colors;
    if (m_kind == Kind::xorg) {
        for (QScreen *screen : QGuiApplication::screens())
            colors.append(edge(screen->grabWindow().toImage()));
        return colors;
    }
    const QTemporaryDir folder;
    if (!run(tool(QStringLiteral("screenshot")), {folder.path()}))
        return {};
    for (const QString &file : QDir(folder.path()).entryList(QDir::Files, QDir::Name))
        colors.append(edge(QImage(folder.filePath(file))));
    return colors;
}

bool Desktop::plugIn() const
{
    switch (m_kind) {
    case Kind::xorg:
        return run(QStringLiteral("xrandr"),
                   {QStringLiteral("--output"), QStringLiteral("DUMMY2"), QStringLiteral("--auto"),
                    QStringLiteral("--pos"), QStringLiteral("2304x0")});
    case Kind::sway:
        return run(QStringLiteral("swaymsg"), {QStringLiteral("create_output")});
    case Kind::mutter:
    case Kind::kwin:
        break;
    }
    return false;
}

bool Desktop::unplug(const QScreen &screen) const
{
    switch (m_kind) {
    case Kind::xorg:
        return run(QStringLiteral("xrandr"),
                   {QStringLiteral("--output"), screen.name(), QStringLiteral("--off")});
    case Kind::sway: {
        const QString host = m_environment.value(QStringLiteral("QUORVANE_HOST_SWAYSOCK"));
        return !host.isEmpty() && run(QStringLiteral("swaymsg"),
                                      {QStringLiteral("--socket"), host,
                                       QStringLiteral("[title=\"wlroots - %1\"] kill").arg(screen.name())});
    }
    case Kind::mutter:
    case Kind::kwin:
        break;
    }
    return false;
}

Desktop::OtherProgram::OtherProgram(const Desktop &desktop, const QScreen &screen)
{
    m_process.setProcessEnvironment(desktop.m_environment);
    m_process.start(QCoreApplication::applicationDirPath() + QStringLiteral("/other_program"),
                    {screen.name()});
    // Where it is allowed the keyboard it says so; elsewhere a second is plenty for it to be on screen.
    constexpr int patience = 1000;
    static_cast<void>(QTest::qWaitFor([this] { return hasKeyboard(); }, patience));
}

Desktop::OtherProgram::~OtherProgram()
{
    m_process.kill();
    m_process.waitForFinished();
}

const QByteArray &Desktop::OtherProgram::told()
{
    return m_told += m_process.readAll();
}

bool Desktop::OtherProgram::hasKeyboard()
{
    return told().lastIndexOf("has the keyboard") > told().lastIndexOf("lost the keyboard");
}

bool Desktop::run(const QString &program, const QStringList &arguments) const
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.start(program, arguments);
    constexpr int patience = 15'000;
    const bool hasEnded =
        QTest::qWaitFor([&process] { return process.state() == QProcess::NotRunning; }, patience);
    return hasEnded && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}

} // namespace quorvane

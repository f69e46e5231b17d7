// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/DesktopPlatform.h"
#include "app/MemoryPrivacy.h"
#include "app/QuitSignals.h"
#include "app/QuorvaneApp.h"
#include "app/QuorvaneCLI.h"
#include "model/linux/SystemClock.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

QStringList argumentsAfterName(int argc, char **argv)
{
    QStringList arguments;
    for (int i = 1; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    return arguments;
}

int runApplication(int argc, char **argv, const QStringList &arguments)
{
    const QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (quorvane::preparePlatform() == quorvane::SessionKind::none &&
        qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        std::puts("Quorvane needs a display: start it inside a graphical session.");
        return EXIT_FAILURE;
    }
    quorvane::QuitSignals quitSignals;
    QGuiApplication application(argc, argv);
    quitSignals.listen();
    QGuiApplication::setApplicationName(u"Quorvane"_s);
    QGuiApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    QGuiApplication::setDesktopFileName(u"me.tarnel.Quorvane"_s);
    QGuiApplication::setQuitOnLastWindowClosed(false);

    const quorvane::SystemClock clock;
    quorvane::QuorvaneApp quorvane(arguments, environment, clock);
    if (::isatty(STDOUT_FILENO) != 0)
        quorvane.reportTo(stdout);
    quorvane.show(arguments);
    const int status = QGuiApplication::exec();
    // Not by leaving: a calendar service or a name server that hangs may still hold a thread, which no
    // orderly end could wait for.
    std::fflush(nullptr);
    std::_Exit(status);
}

} // namespace

int main(int argc, char **argv)
{
    const QStringList arguments = argumentsAfterName(argc, argv);
    quorvane::QuorvaneCLI::prepare(arguments);
    quorvane::keepMemoryPrivate();
    if (const auto status = quorvane::QuorvaneCLI::run(arguments))
        return *status;
    return runApplication(argc, argv, arguments);
}

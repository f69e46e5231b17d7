// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/DesktopPlatform.h"
#include "app/CommandLineStreams.h"
#include "app/InformationDictionary.h"
#include "app/MemoryPrivacy.h"
#include "app/ProcessImage.h"
#include "app/ProgramResources.h"
#include "app/QuitSignals.h"
#include "app/QuorvaneApp.h"
#include "app/QuorvaneCLI.h"
#include "app/Relaunch.h"
#include "app/RunningCopy.h"
#include "app/StartWish.h"
#include "app/UserFolders.h"
#include "app/VersionStart.h"
#include "instance/SingleInstance.h"
#include "instance/linux/RuntimeFolderChannel.h"
#include "instance/linux/SessionBusChannel.h"
#include "instance/linux/SessionBusProbe.h"
#include "launch/linux/ServiceNotifier.h"
#include "launch/linux/StartKind.h"
#include "model/linux/SystemClock.h"
#include "updates/linux/TakeoverGuard.h"

#include <QApplication>

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

/// What the browser gets: nothing that was meant for this process alone.
QProcessEnvironment environmentForOthers()
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &name : {u"XDG_ACTIVATION_TOKEN"_s, u"DESKTOP_STARTUP_ID"_s, u"SYSTEMD_EXEC_PID"_s,
                                u"INVOCATION_ID"_s, u"JOURNAL_STREAM"_s, u"MANAGERPID"_s})
        environment.remove(name);
    return environment;
}

bool isPreview(const QStringList &arguments)
{
    return arguments.contains(u"--preview"_s);
}

QString versionOfProgram()
{
    const QString folder = QCoreApplication::applicationDirPath();
    return quorvane::InformationDictionary::read(quorvane::ProgramResources::informationDictionary(folder))
        .shortVersion.value_or(u"Development"_s);
}

/// Nothing can be shown here, but maybe by a copy elsewhere in the session.
int runWithoutDisplay(int argc, char **argv, const QStringList &arguments,
                      quorvane::ServiceNotifier &notifier)
{
    if (!isPreview(arguments) && quorvane::RunningCopy::activate(argc, argv, arguments)) {
        notifier.ready();
        return EXIT_SUCCESS;
    }
    std::puts("Quorvane needs a display: start it inside a graphical session.");
    return EXIT_FAILURE;
}

void describeApplication()
{
    QApplication::setApplicationName(u"Quorvane"_s);
    QApplication::setApplicationVersion(versionOfProgram());
    QApplication::setDesktopFileName(u"me.tarnel.Quorvane"_s);
    QApplication::setQuitOnLastWindowClosed(
        quorvane::AppDelegate::applicationShouldTerminateAfterLastWindowClosed);
}

/// The new version in this process, or this one again; returns if neither can be.
void startReplacement(const quorvane::ProcessImage &image, const quorvane::InstalledVersions &installed)
{
    using namespace quorvane;
    TakeoverGuard::takeOver(installed, [&image](const QString &executable) {
        [[maybe_unused]] const std::error_code failure = relaunch(image, executable, startKind());
    });
}

int runApplication(int argc, char **argv, const QStringList &arguments, const quorvane::ProcessImage &image)
{
    using namespace quorvane;
    ServiceNotifier notifier;
    const QProcessEnvironment environment = environmentForOthers();
    if (!isSessionBusResponsive())
        doWithoutSessionBus();
    if (preparePlatform() == SessionKind::none && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) {
        VersionStart::putOff(arguments);
        return runWithoutDisplay(argc, argv, arguments, notifier);
    }
    QuitSignals quitSignals; // before a version is on trial: to be asked to end is no failure
    VersionStart start(image, arguments);
    const Activation activation = activationOfStart(arguments);
    QApplication application(argc, argv);
    quitSignals.listen();
    describeApplication();

    SessionBusChannel bus;
    RuntimeFolderChannel folder(UserFolders::runtimeFolder());
    SingleInstance instance({&bus, &folder});
    if (!isPreview(arguments) && instance.claim(activation) == SingleInstance::Outcome::handedOver) {
        start.leave();
        notifier.ready();
        return EXIT_SUCCESS;
    }

    const SystemClock clock;
    QuorvaneApp quorvane(arguments, environment, clock, start);
    QObject::connect(&instance, &SingleInstance::activated, &application,
                     [&quorvane](const Activation &wish) { quorvane.activate(wish); });
    QObject::connect(&instance, &SingleInstance::superseded, &application,
                     [] { QCoreApplication::exit(EXIT_SUCCESS); });
    QObject::connect(&quorvane.model(), &AppModel::ticked, &application, [&notifier] { notifier.ping(); });
    if (::isatty(STDOUT_FILENO) != 0)
        quorvane.reportTo(stdout);
    quorvane.show(arguments);
    notifier.ready();
    int status = QApplication::exec();
    start.end();
    if (quorvane.finish()) {
        startReplacement(image, *start.installed());
        status = EXIT_FAILURE;
    }
    notifier.stopping();
    // Not by leaving, which would wait for threads that a calendar service or a name server may still hold.
    CommandLineStreams::end(status);
}

} // namespace

int main(int argc, char **argv)
{
    const quorvane::ProcessImage image(argc, argv);
    static_cast<void>(quorvane::startKind()); // out of the environment, before anything inherits it
    const QStringList arguments = argumentsAfterName(argc, argv);
    quorvane::QuorvaneCLI::prepare(arguments);
    quorvane::keepMemoryPrivate();
    if (const auto status = quorvane::QuorvaneCLI::run(arguments))
        return *status;
    if (quorvane::RunningCopy::handOverToAgent(argc, argv, arguments))
        return EXIT_SUCCESS;
    return runApplication(argc, argv, arguments, image);
}

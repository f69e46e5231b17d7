// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandLine.h"

#include "app/CommandLineStreams.h"
#include "app/PartSetups.h"
#include "app/PreviewError.h"
#include "app/PreviewExporter.h"
#include "app/SelfTest.h"
#include "app/UserFolders.h"
#include "calendars/CalendarReader.h"
#include "calendars/FantasticalReader.h"
#include "calendars/linux/EvolutionEventWriter.h"
#include "calendars/linux/FolderEventWriter.h"
#include "commands/CalendarStatusCommand.h"
#include "commands/ExitStatus.h"
#include "commands/LoginCommands.h"
#include "commands/SecretCommand.h"
#include "commands/SelfTestCommand.h"
#include "commands/TestMeetingCommand.h"
#include "launch/linux/AutostartEntry.h"
#include "launch/linux/SystemdManager.h"
#include "model/Preferences.h"
#include "model/linux/SystemClock.h"
#include "network/Network.h"
#include "network/Secrets.h"
#include "network/linux/LateSecretService.h"
#include "process/linux/PosixProcessRunner.h"
#include "updates/linux/InstalledVersions.h"

#include <QGuiApplication>

#include <chrono>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace quorvane::CommandLine {

namespace {

/// How long a person may take to unlock the keyring: who has just typed the command is there. Where there is
/// no display to ask on, the keyring says so at once.
constexpr std::chrono::minutes unlockTime(1);

/// What Qt wants to see of a command line: nothing of ours.
struct Arguments
{
    int count = 1;
    char name[sizeof "quorvane"] = "quorvane";
    char *values[2] = {name, nullptr};
};

/// An event loop without a display, and the settings as they stand.
struct Background
{
    Arguments arguments;
    QCoreApplication application{arguments.count, arguments.values};
    SystemClock clock;
    Preferences preferences{UserFolders::settingsFile()};
};

std::vector<std::unique_ptr<CalendarStore>> calendarStores(const Preferences &preferences)
{
    PartSetups::CalendarStores stores = PartSetups::calendarStores();
    stores.use(preferences.calendarFolders(), preferences.ownAddresses());
    return std::move(stores.all);
}

TestMeetingCommand::Writers eventWriters()
{
    TestMeetingCommand::Writers writers;
    writers.push_back(std::make_unique<EvolutionEventWriter>());
    writers.push_back(std::make_unique<FolderEventWriter>(UserFolders::calendarFolder()));
    return writers;
}

/// How this copy of the program is still started when it has updated itself.
QString lastingExecutable()
{
    const QString executable = QCoreApplication::applicationFilePath();
    const auto installed = InstalledVersions::ofExecutable(executable);
    return installed ? installed->currentExecutable() : executable;
}

AutostartEntry loginEntry()
{
    return AutostartEntry(lastingExecutable(), AutostartEntry::systemConfigurationFolders());
}

/// A name that could not be decoded would be that of another folder.
Result<void> exportPreviews(const QString &folder)
{
    if (folder.contains(QChar::ReplacementCharacter))
        return Failure(make_error_code(PreviewError::folderUnavailable));
    return PreviewExporter::exportTo(folder);
}

} // namespace

int renderPreviews(const QString &folder)
{
    Arguments arguments;
    const QGuiApplication application(arguments.count, arguments.values);
    QGuiApplication::setApplicationVersion(QStringLiteral(QUORVANE_VERSION));
    const Result<void> exported = exportPreviews(folder);
    // What the application's parts leave to an event loop that never ran.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    if (exported) {
        CommandLineStreams::print(u"Synthetic previews rendered without displaying a window."_s);
        return ExitStatus::success;
    }
    // Its kind and no more: the reason may hold what is on this machine.
    const QLatin1StringView kind(exported.error().category().name());
    CommandLineStreams::print(u"Preview rendering failed: %1Error"_s.arg(kind));
    return PreviewExporter::failed;
}

int setSecret(const QString &account)
{
    if (!SecretCommand::isAccount(account))
        return ExitStatus::unknownAccount;
    const Background background;
    LateSecretService keyring(unlockTime);
    const Secrets secrets(keyring);
    CommandLineStreams::end(QCoro::waitFor(SecretCommand::handInSecret(account, stdin, secrets)));
}

int checkConnections(ConnectionCommand::Mode mode)
{
    const Background background;
    const FantasticalReader reader(PartSetups::fantasticalReader(background.preferences));
    LateSecretService keyring(unlockTime);
    Secrets secrets(keyring);
    Network network(PartSetups::network(secrets, background.preferences, background.clock));
    const ConnectionCommand::Parts parts{background.preferences, reader, secrets, network};
    const ConnectionCommand command(parts, CommandLineStreams::print);
    CommandLineStreams::end(QCoro::waitFor(command.run(mode)));
}

int disableLoginService()
{
    const Background background;
    AutostartEntry entry = loginEntry();
    return LoginCommands::disableDuplicate(entry, CommandLineStreams::print);
}

int enableLogin()
{
    const Background background;
    const SystemdManager manager(std::make_shared<PosixProcessRunner>(), SystemdManager::systemUnitFolders());
    AutostartEntry entry = loginEntry();
    return LoginCommands::enable(manager, entry, CommandLineStreams::print);
}

int tellCalendarStatus()
{
    const Background background;
    CalendarReader reader(calendarStores(background.preferences));
    CalendarStatusCommand command(reader, background.preferences.excludedCalendars(),
                                  CommandLineStreams::print);
    CommandLineStreams::end(QCoro::waitFor(command.run(background.clock.now())));
}

int createTestMeeting()
{
    const Background background;
    CalendarReader reader(calendarStores(background.preferences));
    TestMeetingCommand command(reader, eventWriters(), CommandLineStreams::print);
    CommandLineStreams::end(QCoro::waitFor(command.run(background.clock.now())));
}

int selfTest()
{
    const auto test = []() -> SelfTestCommand::Finding {
        SelfTest::prepare();
        Arguments arguments;
        const QGuiApplication application(arguments.count, arguments.values);
        const QString programFolder = QCoreApplication::applicationDirPath();
        if (const std::optional<QString> fault = SelfTest::fault(programFolder))
            return {ExitStatus::selfTestFailed, *fault};
        return {ExitStatus::success, u"%1 works on this machine."_s.arg(SelfTest::version(programFolder))};
    };
    return SelfTestCommand::run(test, CommandLineStreams::print);
}

} // namespace quorvane::CommandLine

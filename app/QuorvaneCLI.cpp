// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QuorvaneCLI.h"

#include "app/CommandLine.h"
#include "app/CommandLineStreams.h"
#include "app/PreviewExporter.h"

#include <algorithm>
#include <functional>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Command = std::function<int()>;

const QString previewFlag = u"--render-preview"_s;

/// What follows the flag; absent when the flag is not there or is the last one.
std::optional<QString> valueOf(const QStringList &arguments, const QString &flag)
{
    const qsizetype at = arguments.indexOf(flag);
    if (at < 0 || at + 1 >= arguments.size())
        return std::nullopt;
    return arguments.at(at + 1);
}

int refuseUnknown()
{
    CommandLineStreams::print(u"Unknown or incomplete command. No application window was opened."_s);
    return QuorvaneCLI::unknownCommand;
}

/// The first command that is there, wherever it stands; empty when the application is to start.
Command commandIn(const QStringList &arguments)
{
    if (const auto folder = valueOf(arguments, previewFlag))
        return [folder] { return CommandLine::renderPreviews(*folder); };
    if (const auto account = valueOf(arguments, u"--set-secret"_s))
        return [account] { return CommandLine::setSecret(*account); };
    if (arguments.contains(u"--sync-now"_s))
        return [] { return CommandLine::checkConnections(ConnectionCommand::Mode::sync); };
    if (arguments.contains(u"--verify-connections"_s))
        return [] { return CommandLine::checkConnections(ConnectionCommand::Mode::verify); };
    if (arguments.contains(u"--disable-login-service"_s))
        return CommandLine::disableLoginService;
    if (arguments.contains(u"--enable-login"_s))
        return CommandLine::enableLogin;
    if (arguments.contains(u"--calendar-status"_s))
        return CommandLine::tellCalendarStatus;
    if (arguments.contains(u"--create-test-meeting"_s))
        return CommandLine::createTestMeeting;
    if (arguments.contains(u"--self-test"_s))
        return CommandLine::selfTest;
    const QStringList applicationOptions{u"--preview"_s, u"--preview-overlay"_s};
    const bool isUnknown = std::ranges::any_of(arguments, [&](const QString &argument) {
        return argument.startsWith("--"_L1) && !applicationOptions.contains(argument);
    });
    return isUnknown ? refuseUnknown : Command();
}

} // namespace

void QuorvaneCLI::prepare(const QStringList &arguments)
{
    if (commandIn(arguments))
        CommandLineStreams::prepare();
    if (valueOf(arguments, previewFlag))
        PreviewExporter::prepare();
}

std::optional<int> QuorvaneCLI::run(const QStringList &arguments)
{
    const Command command = commandIn(arguments);
    return command ? std::optional(command()) : std::nullopt;
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/SystemdManager.h"

#include "launch/linux/AgentState.h"

#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace quorvane {

namespace {

constexpr auto queryLimit = 3s;
/// The agent is ready within a second on a machine that does nothing else. A person waits for this.
constexpr auto startLimit = 20s;

const QString unit = QLatin1StringView(ServiceManager::label) + u".service"_s;

/// Not by $PATH: what lies in a folder of the user's is not the system's tool.
QString systemctl()
{
    return QStandardPaths::findExecutable(u"systemctl"_s, {u"/usr/bin"_s, u"/bin"_s});
}

std::vector<std::pair<QByteArray, QByteArray>> environment()
{
    std::vector<std::pair<QByteArray, QByteArray>> result{{"LANG", "C"}};
    for (const char *name : {"HOME", "PATH", "XDG_RUNTIME_DIR", "DBUS_SESSION_BUS_ADDRESS"}) {
        if (qEnvironmentVariableIsSet(name))
            result.emplace_back(name, qgetenv(name));
    }
    return result;
}

/// The folders that a variable of the XDG Base Directory Specification names; relative ones do not count.
QStringList foldersOf(const char *variable, const QString &otherwise)
{
    QStringList folders = qEnvironmentVariable(variable).split(u':', Qt::SkipEmptyParts);
    folders.removeIf([](const QString &folder) { return !QDir::isAbsolutePath(folder); });
    return folders.isEmpty() ? otherwise.split(u':', Qt::SkipEmptyParts) : folders;
}

bool isMask(const QFileInfo &file)
{
    return file.size() == 0 || file.canonicalFilePath() == "/dev/null"_L1;
}

} // namespace

SystemdManager::SystemdManager(std::shared_ptr<const ProcessRunner> runner, QStringList unitFolders)
    : m_runner(std::move(runner))
    , m_unitFolders(std::move(unitFolders))
{
}

QStringList SystemdManager::systemUnitFolders()
{
    const QString home = QDir::homePath();
    const QStringList bases = foldersOf("XDG_CONFIG_HOME", home + u"/.config"_s) +
                              foldersOf("XDG_CONFIG_DIRS", u"/etc/xdg"_s) + QStringList{u"/etc"_s} +
                              foldersOf("XDG_RUNTIME_DIR", {}) + QStringList{u"/run"_s} +
                              foldersOf("XDG_DATA_HOME", home + u"/.local/share"_s) +
                              foldersOf("XDG_DATA_DIRS", u"/usr/local/share:/usr/share"_s) +
                              QStringList{u"/usr/local/lib"_s, u"/usr/lib"_s};
    QStringList folders;
    for (const QString &base : bases)
        folders.append(base + u"/systemd/user"_s);
    return folders;
}

bool SystemdManager::hasAgent() const
{
    for (const QString &folder : m_unitFolders) {
        if (const QFileInfo file(QDir(folder), unit); file.exists())
            return !isMask(file);
    }
    return false;
}

Result<std::optional<qint32>> SystemdManager::agentProcess() const
{
    const Result<QByteArray> said = run({u"show"_s, u"--property=LoadState,MainPID"_s, unit}, queryLimit);
    if (!said)
        return Failure(said.error());
    return AgentState::processFrom(*said);
}

Result<void> SystemdManager::startAgent() const
{
    if (const Result<QByteArray> said = run({u"start"_s, unit}, startLimit); !said)
        return Failure(said.error());
    return {};
}

// Blocks this thread, which is the main one: there is no application yet that could wait in another way, and
// none whose alerts this could hold up.
Result<QByteArray> SystemdManager::run(const QStringList &arguments,
                                       std::chrono::milliseconds timeLimit) const
{
    const QString program = systemctl();
    if (program.isEmpty())
        return Failure(make_error_code(std::errc::no_such_file_or_directory));
    const ProcessRequest request{.program = program,
                                 .arguments = QStringList{u"--user"_s} + arguments,
                                 .environment = environment(),
                                 .timeLimit = timeLimit,
                                 .outputLimit = 4'096};
    Result<ProcessOutcome> outcome = m_runner->run(request);
    if (!outcome)
        return Failure(outcome.error());
    if (outcome->exitStatus != 0)
        return Failure(make_error_code(std::errc::no_such_process));
    return std::move(outcome->output);
}

} // namespace quorvane

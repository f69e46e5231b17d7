// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/VersionPreparation.h"

#include "posix/SystemError.h"
#include "posix/ThreadPriority.h"
#include "updates/UpdateError.h"
#include "updates/linux/ArchiveSignature.h"
#include "updates/linux/DurableFolder.h"
#include "updates/linux/FileLock.h"
#include "updates/linux/InstallationFailure.h"
#include "updates/linux/PreparedMark.h"
#include "updates/linux/StagedTree.h"
#include "updates/linux/UpdatesFolder.h"

#include <QDir>
#include <QFile>

#include <csignal>
#include <cstdio>

#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Environment = std::vector<std::pair<QByteArray, QByteArray>>;

FileDescriptor folderAt(const QString &path)
{
    return FileDescriptor(
        ::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
}

bool move(const QString &from, const QString &to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

UpdateError unpackerError(const ProcessOutcome &outcome)
{
    const QByteArray word = outcome.errorOutput.trimmed();
    if (word == "disk_full" || outcome.exitStatus == 128 + SIGXFSZ)
        return UpdateError::diskFull;
    // What no archive of ours makes it do: run out of its time or memory, or ask for what it may not.
    const bool wasEnded = outcome.exitStatus > 128;
    return word == "archive_invalid" || wasEnded ? UpdateError::archiveInvalid
                                                 : UpdateError::installationFailed;
}

Environment testEnvironment(const QString &home)
{
    const QByteArray folder = QFile::encodeName(home);
    return {{"HOME", folder},
            {"XDG_RUNTIME_DIR", folder},
            {"PATH", "/usr/bin:/bin"},
            {"LC_ALL", "C.UTF-8"},
            {"QT_QPA_PLATFORM", "offscreen"},
            // Not only left out: the libraries would look for a bus, or start one.
            {"DBUS_SESSION_BUS_ADDRESS", "disabled:"}};
}

} // namespace

VersionPreparation::VersionPreparation(VersionedInstaller::Configuration configuration,
                                       std::shared_ptr<UpdatesFolder> folder, UpdateItem item)
    : m_configuration(std::move(configuration))
    , m_folder(std::move(folder))
    , m_item(std::move(item))
{
}

Result<void> VersionPreparation::perform() const
{
    lowerThreadPriority(); // no update is worth a late alert
    m_folder->removeWorkshops();
    const Result<QString> workshop = m_folder->makeWorkshop();
    const Result<void> done = workshop ? prepareIn(*workshop) : Failure(workshop.error());
    QFile::remove(m_folder->archive(m_item));
    m_folder->removeWorkshops();
    return done;
}

Result<void> VersionPreparation::prepareIn(const QString &workshop) const
{
    const QString archive = m_folder->archive(m_item);
    const QString tree = workshop + u"/tree"_s;
    const QString home = workshop + u"/home"_s;
    if (Result<void> checked =
            ArchiveSignature::verify(archive, m_item.length, m_item.signature, m_configuration.key);
        !checked)
        return checked;
    if (!QDir().mkdir(tree) || !QDir().mkdir(home))
        return installationFailure(errno);
    if (Result<void> unpacked = unpack(archive, tree); !unpacked)
        return unpacked;
    const Result<QString> version = StagedTree::versionIn(tree, m_item.version);
    if (!version)
        return Failure(version.error());
    if (Result<void> tested = selfTest(*version, home); !tested)
        return tested;
    if (Result<void> sealed = seal(*version); !sealed)
        return sealed;
    return place(*version, workshop);
}

Result<void> VersionPreparation::unpack(const QString &archive, const QString &tree) const
{
    const Result<ProcessOutcome> outcome =
        m_configuration.runner->run({.program = m_configuration.unpacker,
                                     .arguments = {archive, tree},
                                     .environment = {{"PATH", "/usr/bin:/bin"}, {"LC_ALL", "C.UTF-8"}},
                                     .timeLimit = m_configuration.limits.unpacking});
    if (!outcome)
        return Failure(UpdateError::installationFailed);
    if (outcome->exitStatus != 0)
        return Failure(unpackerError(*outcome));
    return {};
}

Result<void> VersionPreparation::selfTest(const QString &version, const QString &home) const
{
    const Result<ProcessOutcome> outcome =
        m_configuration.runner->run({.program = version + u"/bin/quorvane"_s,
                                     .arguments = {u"--self-test"_s},
                                     .environment = testEnvironment(home),
                                     .timeLimit = m_configuration.limits.selfTest});
    if (!outcome || outcome->exitStatus != 0)
        return Failure(UpdateError::selfTestFailed);
    return {};
}

// All is on the disk before the version gets its name. So a version that has the name is whole, whatever was
// killed or lost its power when; and the mark tells it from what somebody unpacked there by hand, half or
// whole.
Result<void> VersionPreparation::seal(const QString &version) const
{
    if (const Result<void> marked = PreparedMark::write(version, m_item); !marked)
        return installationFailure(marked.error());
    const FileDescriptor folder = folderAt(version);
    if (!folder.isValid() || ::syncfs(folder.value()) != 0)
        return installationFailure(errno);
    return {};
}

Result<void> VersionPreparation::place(const QString &version, const QString &workshop) const
{
    const InstalledVersions &installed = m_configuration.installed;
    const QString target = installed.folder(m_item.version);
    const FileDescriptor former = folderAt(target);
    if (former.isValid() && tryLock(former, LockKind::exclusive) == LockOutcome::refused)
        return Failure(UpdateError::installationFailed); // somebody runs it
    const QString aside = workshop + u"/former"_s;
    if (former.isValid() && !move(target, aside))
        return installationFailure(errno);
    if (!move(version, target)) {
        const Failure failure = installationFailure(errno);
        if (former.isValid())
            static_cast<void>(move(aside, target));
        return failure;
    }
    if (const Result<void> flushed = DurableFolder(installed.root() + u"/versions"_s).flush(); !flushed)
        return installationFailure(flushed.error());
    return {};
}

} // namespace quorvane

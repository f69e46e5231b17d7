// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/VersionCleaning.h"

#include "posix/FileDescriptor.h"
#include "posix/ThreadPriority.h"
#include "updates/VersionOrder.h"
#include "updates/linux/DurableFolder.h"
#include "updates/linux/FileLock.h"
#include "updates/linux/PreparedMark.h"
#include "updates/linux/TrialMark.h"
#include "updates/linux/TrialRecord.h"
#include "updates/linux/UpdatesFolder.h"

#include <QDir>
#include <QFile>

#include <cstdio>

#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr int daysOfDownloads = 30;

bool isInUse(const QString &folder)
{
    const FileDescriptor opened(
        ::open(QFile::encodeName(folder).constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    return tryLock(opened, LockKind::exclusive) != LockOutcome::taken; // where nobody can tell, it is
}

} // namespace

VersionCleaning::VersionCleaning(InstalledVersions installed, std::shared_ptr<UpdatesFolder> folder)
    : m_installed(std::move(installed))
    , m_folder(std::move(folder))
{
}

void VersionCleaning::perform() const
{
    lowerThreadPriority();
    {
        const std::scoped_lock choice(m_folder->choice());
        const DurableFolder root(m_installed.root());
        if (isTrialOver(root))
            setAsideUnneeded();
    }
    m_folder->removeWorkshops();
    m_folder->removeArchivesOlderThan(daysOfDownloads);
}

// A trial of what is not current was not begun, because of a kill, or was lost. Nobody puts a version in
// place at this moment.
bool VersionCleaning::isTrialOver(const DurableFolder &root) const
{
    if (!root.has(TrialRecord::file))
        return true;
    const Result<TrialRecord> record =
        TrialRecord::fromJson(root.read(TrialRecord::file).value_or(QByteArray()));
    if (record && record->version == m_installed.currentVersion())
        return false;
    root.remove(TrialRecord::file);
    TrialMark::removeAll(root);
    return true;
}

void VersionCleaning::setAsideUnneeded() const
{
    const QStringList versions = presentVersions();
    const QString former = formerVersion(versions);
    for (const QString &version : versions) {
        const QString folder = m_installed.folder(version);
        if (version == former || isNeeded(version) || isInUse(folder))
            continue;
        // In one step, so that there is never half a version.
        if (const Result<QString> workshop = m_folder->makeWorkshop())
            std::rename(QFile::encodeName(folder).constData(),
                        QFile::encodeName(*workshop + u"/former"_s).constData());
    }
}

QStringList VersionCleaning::presentVersions() const
{
    QStringList names = QDir(m_installed.root() + u"/versions"_s)
                            .entryList(QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    names.removeIf([](const QString &name) { return !VersionOrder::isVersion(name); });
    return names;
}

// The link is not there when it could not be made, on a full disk.
QString VersionCleaning::formerVersion(const QStringList &versions) const
{
    const std::optional<QString> previous = m_installed.previousVersion();
    if (previous && m_installed.isExecutable(*previous))
        return *previous;
    const QString current = m_installed.currentVersion().value_or(m_installed.own());
    QString newest;
    for (const QString &version : versions) {
        if (VersionOrder::compare(version, current) < 0 && m_installed.isExecutable(version) &&
            (newest.isEmpty() || VersionOrder::compare(version, newest) > 0))
            newest = version;
    }
    return newest;
}

// Also one that was given up, if it was made ready: a person may have asked for it once more.
bool VersionCleaning::isNeeded(const QString &version) const
{
    const std::optional<QString> current = m_installed.currentVersion();
    if (version == m_installed.own() || version == current)
        return true;
    const bool isAhead = VersionOrder::compare(version, current.value_or(m_installed.own())) > 0;
    return isAhead && PreparedMark::isIn(m_installed.folder(version));
}

} // namespace quorvane

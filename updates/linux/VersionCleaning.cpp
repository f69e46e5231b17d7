// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/VersionCleaning.h"

#include "posix/FileDescriptor.h"
#include "posix/ThreadPriority.h"
#include "updates/VersionOrder.h"
#include "updates/linux/DurableFolder.h"
#include "updates/linux/FileLock.h"
#include "updates/linux/PreparedMark.h"
#include "updates/linux/RejectedVersions.h"
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
    return !tryLock(opened, LockKind::exclusive);
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
            setAsideUnneeded(root);
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
    root.remove(TrialRecord::mark);
    return true;
}

void VersionCleaning::setAsideUnneeded(const DurableFolder &root) const
{
    const QStringList rejected = RejectedVersions::read(root).versions;
    const QStringList versions =
        QDir(m_installed.root() + u"/versions"_s)
            .entryList(QDir::Dirs | QDir::Hidden | QDir::NoSymLinks | QDir::NoDotAndDotDot);
    for (const QString &version : versions) {
        const QString folder = m_installed.folder(version);
        if (!VersionOrder::isVersion(version) || isNeeded(version, rejected) || isInUse(folder))
            continue;
        // In one step, so that there is never half a version.
        if (const Result<QString> workshop = m_folder->makeWorkshop())
            std::rename(QFile::encodeName(folder).constData(),
                        QFile::encodeName(*workshop + u"/former"_s).constData());
    }
}

bool VersionCleaning::isNeeded(const QString &version, const QStringList &rejected) const
{
    const std::optional<QString> current = m_installed.currentVersion();
    if (version == m_installed.own() || version == current || version == m_installed.previousVersion())
        return true;
    const bool isAhead = VersionOrder::compare(version, current.value_or(m_installed.own())) > 0;
    return isAhead && !rejected.contains(version) && PreparedMark::isIn(m_installed.folder(version));
}

} // namespace quorvane

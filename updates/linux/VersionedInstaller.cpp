// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/VersionedInstaller.h"

#include "async/OffThread.h"
#include "updates/UpdateError.h"
#include "updates/linux/ArchiveSignature.h"
#include "updates/linux/DurableFolder.h"
#include "updates/linux/PendingVersion.h"
#include "updates/linux/PreparedMark.h"
#include "updates/linux/RejectedVersions.h"
#include "updates/linux/UpdatesFolder.h"
#include "updates/linux/VersionCleaning.h"
#include "updates/linux/VersionPreparation.h"
#include "updates/linux/VersionSwap.h"

#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// What is in an archive takes at most about so many times its room.
constexpr qint64 expansion = 4;
constexpr std::chrono::seconds grace{10};

std::chrono::milliseconds boundFor(const VersionedInstaller::Limits &limits)
{
    return 2 * (limits.unpacking + limits.selfTest) + limits.disk + grace;
}

} // namespace

VersionedInstaller::VersionedInstaller(Configuration configuration)
    : m_configuration(std::move(configuration))
{
}

VersionedInstaller::~VersionedInstaller() = default;

Result<void> VersionedInstaller::check() const
{
    if (m_configuration.key.size() != ArchiveSignature::keySize || m_configuration.unpacker.isEmpty())
        return Failure(UpdateError::setupInvalid);
    if (!m_configuration.installed.canChange())
        return Failure(UpdateError::folderReadOnly);
    return {};
}

Result<std::shared_ptr<UpdatesFolder>> VersionedInstaller::updatesFolder()
{
    if (m_folder)
        return m_folder;
    Result<std::shared_ptr<UpdatesFolder>> folder = UpdatesFolder::open(m_configuration.installed.root());
    if (folder)
        m_folder = *folder;
    return folder;
}

Result<QString> VersionedInstaller::archiveFile(const UpdateItem &item)
{
    const Result<std::shared_ptr<UpdatesFolder>> folder = updatesFolder();
    if (!folder)
        return Failure(folder.error());
    if (isWorking())
        return Failure(UpdateError::busy);
    QString file = (*folder)->archive(item);
    (*folder)->removeArchivesBut(file);
    const qint64 present = QFileInfo(file).size();
    if (!(*folder)->hasRoomFor(item.length * (1 + expansion) - qMin(present, item.length)))
        return Failure(UpdateError::diskFull);
    return file;
}

bool VersionedInstaller::isPrepared(const UpdateItem &item) const
{
    const InstalledVersions &installed = m_configuration.installed;
    return installed.isExecutable(item.version) && PreparedMark::isOf(installed.folder(item.version), item);
}

bool VersionedInstaller::isWorking() const
{
    return *m_isWorking || *m_overdue > 0;
}

QCoro::Task<Result<void>> VersionedInstaller::prepare(UpdateItem item)
{
    const InstalledVersions &installed = m_configuration.installed;
    const Result<std::shared_ptr<UpdatesFolder>> folder = updatesFolder();
    if (!folder)
        co_return Failure(folder.error());
    if (isWorking())
        co_return Failure(UpdateError::busy);
    if (item.version == installed.own() || item.version == installed.currentVersion()) {
        (*folder)->removeArchivesBut({});
        co_return Failure(UpdateError::wrongVersion);
    }
    const auto working = m_isWorking; // this object may be gone in the end
    *working = true;
    const std::chrono::milliseconds bound = boundFor(m_configuration.limits);
    std::function<Result<void>()> job = [work = VersionPreparation(m_configuration, *folder, item)] {
        return work.perform();
    };
    const std::optional<Result<void>> done =
        co_await offThread<Result<void>>(std::move(job), bound, m_overdue);
    *working = false;
    if (!done) // a file system that hangs
        co_return Failure(UpdateError::installationFailed);
    Result<void> result = *done;
    co_return result;
}

Result<void> VersionedInstaller::activate(const UpdateItem &item, const Handover &handover)
{
    const Result<std::shared_ptr<UpdatesFolder>> folder = updatesFolder();
    if (!folder || !isPrepared(item))
        return Failure(UpdateError::installationFailed);
    const std::scoped_lock choice((*folder)->choice());
    return VersionSwap::perform(m_configuration.installed, item.version, handover);
}

Result<void> VersionedInstaller::activateAtNextStart(const UpdateItem &item)
{
    if (!isPrepared(item) || !PendingVersion::note(m_configuration.installed, item))
        return Failure(UpdateError::installationFailed);
    return {};
}

bool VersionedInstaller::hasFailed(const UpdateItem &item) const
{
    return RejectedVersions::read(DurableFolder(m_configuration.installed.root()))
        .versions.contains(item.version);
}

QCoro::Task<void> VersionedInstaller::clean()
{
    const Result<std::shared_ptr<UpdatesFolder>> folder = updatesFolder();
    if (!folder || isWorking())
        co_return;
    const auto working = m_isWorking;
    *working = true;
    const std::chrono::milliseconds bound = m_configuration.limits.disk;
    std::function<bool()> job = [work = VersionCleaning(m_configuration.installed, *folder)] {
        work.perform();
        return true;
    };
    co_await offThread<bool>(std::move(job), bound, m_overdue);
    *working = false;
}

} // namespace quorvane

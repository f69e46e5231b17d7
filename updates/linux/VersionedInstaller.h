// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "process/ProcessRunner.h"
#include "updates/UpdateInstaller.h"
#include "updates/linux/InstalledVersions.h"

#include <chrono>
#include <memory>

namespace quorvane {

class UpdatesFolder;

/// Installs versions beside each other (see `InstalledVersions`). All that comes and goes meanwhile lies in
/// ROOT/.updates, which only the user can read; a version appears in ROOT/versions whole, tested and flushed
/// to the disk, by one rename. One process at a time works there: a lock is held from the first use to the
/// end of this object, and of what it has under way.
class VersionedInstaller final : public UpdateInstaller
{
public:
    struct Limits
    {
        /// The unpacker has a bound of its own, 120 seconds, and says so itself.
        std::chrono::milliseconds unpacking{130'000};
        std::chrono::milliseconds selfTest{30'000};
        /// Reading the archive, and pushing what was unpacked to the disk.
        std::chrono::milliseconds disk{120'000};
    };

    struct Configuration
    {
        InstalledVersions installed;
        /// The public key that archives must be signed with: 32 bytes.
        QByteArray key;
        /// Path of the executable that unpacks them.
        QString unpacker;
        std::shared_ptr<const ProcessRunner> runner;
        Limits limits{};
    };

    explicit VersionedInstaller(Configuration configuration);
    ~VersionedInstaller() override;

    [[nodiscard]] Result<void> check() const override;
    [[nodiscard]] Result<QString> archiveFile(const UpdateItem &item) override;
    [[nodiscard]] bool isPrepared(const UpdateItem &item) const override;
    /// Fails with `busy` while another `prepare` or `clean` is under way.
    [[nodiscard]] QCoro::Task<Result<void>> prepare(UpdateItem item) override;
    [[nodiscard]] Result<void> activate(const UpdateItem &item, const Handover &handover) override;
    [[nodiscard]] Result<void> activateAtNextStart(const UpdateItem &item) override;
    [[nodiscard]] bool hasFailed(const UpdateItem &item) const override;

    /// Removes versions that nobody needs any more: kept are the running, the current and the one before it,
    /// those that another process runs, and newer ones that are prepared; all of them while a version is on
    /// trial. Removes what was left in ROOT/.updates too, but downloads only when they are old.
    [[nodiscard]] QCoro::Task<void> clean();

private:
    [[nodiscard]] Result<std::shared_ptr<UpdatesFolder>> updatesFolder();
    [[nodiscard]] bool isWorking() const;

    Configuration m_configuration;
    std::shared_ptr<UpdatesFolder> m_folder;
    /// How many jobs outlived their time bound, and may still be at work.
    std::shared_ptr<int> m_overdue = std::make_shared<int>(0);
    std::shared_ptr<bool> m_isWorking = std::make_shared<bool>(false);
};

} // namespace quorvane

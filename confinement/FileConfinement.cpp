// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement/FileConfinement.h"

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace quorvane {
namespace {

/// The kernel's structure as it is since Linux 6.12; Debian 12's header ends after the first field.
struct Ruleset
{
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
};

/// What each version of the interface added, from the first on: rights over files, bind and connect to TCP,
/// the scopes of abstract sockets and signals.
struct Version
{
    std::uint64_t files = 0;
    std::uint64_t network = 0;
    std::uint64_t scopes = 0;
    std::size_t size = 0;
};
constexpr std::array<Version, 6> versions{{{0x1FFF, 0, 0, 8},
                                           {0x3FFF, 0, 0, 8},
                                           {0x7FFF, 0, 0, 8},
                                           {0x7FFF, 3, 0, 16},
                                           {0xFFFF, 3, 0, 16},
                                           {0xFFFF, 3, 3, 24}}};

const Version *offered()
{
    const long version = ::syscall(SYS_landlock_create_ruleset, nullptr, 0, LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1)
        return nullptr;
    return &versions[std::min(versions.size(), static_cast<std::size_t>(version)) - 1];
}

constexpr std::uint64_t reading = LANDLOCK_ACCESS_FS_READ_FILE | LANDLOCK_ACCESS_FS_READ_DIR;
constexpr std::uint64_t making = reading | LANDLOCK_ACCESS_FS_WRITE_FILE | LANDLOCK_ACCESS_FS_MAKE_REG |
                                 LANDLOCK_ACCESS_FS_MAKE_DIR | LANDLOCK_ACCESS_FS_MAKE_SYM;

/// Invalid where the kernel offers none.
FileDescriptor newRuleset()
{
    const Version *version = offered();
    if (!version)
        return {};
    const Ruleset rights{version->files, version->network, version->scopes};
    return FileDescriptor(
        static_cast<int>(::syscall(SYS_landlock_create_ruleset, &rights, version->size, 0)));
}

void allowBelow(const FileDescriptor &folder, std::uint64_t rights, const FileDescriptor &ruleset)
{
    const landlock_path_beneath_attr rule{rights, folder.value()};
    (void)::syscall(SYS_landlock_add_rule, ruleset.value(), LANDLOCK_RULE_PATH_BENEATH, &rule, 0);
}

void obey(const FileDescriptor &ruleset)
{
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    (void)::syscall(SYS_landlock_restrict_self, ruleset.value(), 0);
}

} // namespace

void confineToReading(const QByteArrayList &folders)
{
    const FileDescriptor ruleset = newRuleset();
    if (!ruleset.isValid())
        return;
    for (const QByteArray &path : folders) {
        const FileDescriptor folder(::open(path.constData(), O_PATH | O_DIRECTORY | O_CLOEXEC));
        if (folder.isValid())
            allowBelow(folder, reading, ruleset);
    }
    obey(ruleset);
}

void confineToMaking(const FileDescriptor &folder)
{
    const FileDescriptor ruleset = newRuleset();
    if (!ruleset.isValid())
        return;
    allowBelow(folder, making, ruleset);
    obey(ruleset);
}

} // namespace quorvane

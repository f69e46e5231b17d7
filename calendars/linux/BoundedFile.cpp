// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/BoundedFile.h"

#include "posix/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace quorvane {
namespace {

constexpr std::int64_t nanoseconds = 1'000'000'000;

std::error_code systemError()
{
    return {errno, std::generic_category()};
}

} // namespace

Result<FileIdentity> FileIdentity::of(int folder, const char *name)
{
    struct stat state{};
    if (::fstatat(folder, name, &state, 0) != 0)
        return Failure(systemError());
    if (!S_ISREG(state.st_mode))
        return Failure(std::make_error_code(std::errc::not_supported));
    return FileIdentity{state.st_dev, state.st_ino, state.st_size,
                        state.st_mtim.tv_sec * nanoseconds + state.st_mtim.tv_nsec,
                        state.st_ctim.tv_sec * nanoseconds + state.st_ctim.tv_nsec};
}

bool FileIdentity::isFresh(std::int64_t now) const
{
    constexpr std::int64_t coarsestStep = nanoseconds / 10;
    return now - modified < coarsestStep && modified - now < coarsestStep;
}

Result<std::string> readBounded(int folder, const char *name, std::int64_t limit)
{
    const FileDescriptor file(::openat(folder, name, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat state{};
    if (!file.isValid() || ::fstat(file.value(), &state) != 0)
        return Failure(systemError());
    if (!S_ISREG(state.st_mode))
        return Failure(std::make_error_code(std::errc::not_supported));
    if (state.st_size > limit)
        return Failure(std::make_error_code(std::errc::file_too_large));

    // One byte more than expected shows the end, or that the file has grown meanwhile.
    std::string content(static_cast<std::size_t>(state.st_size) + 1, '\0');
    std::size_t used = 0;
    for (;;) {
        const ssize_t count = ::read(file.value(), content.data() + used, content.size() - used);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return Failure(systemError());
        if (count == 0)
            break;
        used += static_cast<std::size_t>(count);
        if (static_cast<std::int64_t>(used) > limit)
            return Failure(std::make_error_code(std::errc::file_too_large));
        if (used == content.size())
            content.resize(content.size() * 2);
    }
    content.resize(used);
    return content;
}

} // namespace quorvane

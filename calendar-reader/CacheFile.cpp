// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheFile.h"

#include "calendars/records/FantasticalReadError.h"
#include "posix/FileDescriptor.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string_view>

namespace quorvane {
namespace {

// https://www.sqlite.org/fileformat2.html
constexpr std::string_view magic("SQLite format 3\0", 16);
constexpr std::size_t headerSize = 100;
constexpr std::size_t readVersionAt = 19;
constexpr char writeAheadLog = 2;
constexpr std::int64_t nanoseconds = 1'000'000'000;

FantasticalReadError errorOf(int number)
{
    return number == EACCES || number == EPERM ? FantasticalReadError::accessDenied
                                               : FantasticalReadError::databaseUnavailable;
}

FileDescriptor openToRead(const QByteArray &path)
{
    return FileDescriptor(::open(path.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
}

std::int64_t inNanoseconds(const timespec &time)
{
    return time.tv_sec * nanoseconds + time.tv_nsec;
}

} // namespace

Result<QByteArray> CacheFile::resolve(const QByteArray &path)
{
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.constData(), nullptr),
                                                               &std::free);
    if (!resolved)
        return Failure(errorOf(errno));
    return QByteArray(resolved.get());
}

Result<CacheFile> CacheFile::inspect(const QByteArray &path)
{
    CacheFile file;
    if (const Result<void> header = readHeader(path, file); !header)
        return Failure(header.error());
    if (file.m_journal == CacheJournal::rollback)
        return file;
    if (const Result<void> log = readLog(path + "-wal", file); !log)
        return Failure(log.error());
    return file;
}

Result<void> CacheFile::readHeader(const QByteArray &path, CacheFile &file)
{
    const FileDescriptor descriptor = openToRead(path);
    if (!descriptor.isValid())
        return Failure(errorOf(errno));
    struct stat state{};
    if (::fstat(descriptor.value(), &state) != 0 || !S_ISREG(state.st_mode))
        return Failure(FantasticalReadError::databaseUnavailable);
    file.m_main = stampOf(descriptor.value());

    std::array<char, headerSize> header{};
    const ssize_t size = ::pread(descriptor.value(), header.data(), header.size(), 0);
    if (size < 0)
        return Failure(errorOf(errno));
    const auto compared = std::min(magic.size(), static_cast<std::size_t>(size));
    if (std::string_view(header.data(), compared) != magic.substr(0, compared))
        return Failure(FantasticalReadError::unsupportedFormat);
    if (static_cast<std::size_t>(size) < header.size())
        return Failure(FantasticalReadError::databaseUnavailable);
    file.m_journal = header[readVersionAt] == writeAheadLog ? CacheJournal::logEmpty : CacheJournal::rollback;
    return {};
}

Result<void> CacheFile::readLog(const QByteArray &path, CacheFile &file)
{
    const FileDescriptor descriptor = openToRead(path);
    if (!descriptor.isValid() && errno == ENOENT)
        return {};
    if (!descriptor.isValid())
        return Failure(errorOf(errno));
    file.m_log = stampOf(descriptor.value());
    if (file.m_log.size == 0)
        return {};
    if (::pread(descriptor.value(), file.m_logHeader.data(), file.m_logHeader.size(), 0) < 0)
        return Failure(errorOf(errno));
    file.m_journal = CacheJournal::logFilled;
    return {};
}

CacheFile::Stamp CacheFile::stampOf(int descriptor)
{
    struct stat state{};
    if (::fstat(descriptor, &state) != 0)
        return {};
    return {state.st_dev, state.st_ino, state.st_size, inNanoseconds(state.st_mtim),
            inNanoseconds(state.st_ctim)};
}

double CacheFile::modifiedAt() const
{
    const std::int64_t last = m_log.size > 0 ? std::max(m_main.modified, m_log.modified) : m_main.modified;
    return static_cast<double>(last) / static_cast<double>(nanoseconds);
}

bool CacheFile::isUnchangedIn(const CacheFile &later) const
{
    return m_journal == later.m_journal && m_main == later.m_main && m_log.device == later.m_log.device &&
           m_log.inode == later.m_log.inode && m_logHeader == later.m_logHeader;
}

bool CacheFile::isFresh() const
{
    // The clock of time stamps moves on with the kernel's tick, 10 ms at most.
    constexpr std::int64_t coarsestStep = nanoseconds / 50;
    const std::int64_t now =
        std::chrono::nanoseconds(std::chrono::system_clock::now().time_since_epoch()).count();
    return std::abs(now - m_main.changed) < coarsestStep;
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/CompressedStream.h"

#include "update-unpacker/UnpackError.h"

#include <archive.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <utility>

namespace quorvane {
namespace {

constexpr std::size_t readSize = 65'536;
/// The filter that has the file's own bytes.
constexpr int innermost = -1;

} // namespace

void CompressedStream::Free::operator()(archive *reader) const
{
    archive_read_free(reader);
}

CompressedStream::CompressedStream(FileDescriptor file)
    : m_file(std::move(file))
    , m_reader(archive_read_new())
{
}

bool CompressedStream::open()
{
    archive *reader = m_reader.get();
    archive_entry *everything = nullptr;
    // Anything but ARCHIVE_OK: the library would run another program instead, or has found a fault.
    return reader && archive_read_support_filter_xz(reader) == ARCHIVE_OK &&
           archive_read_support_filter_gzip(reader) == ARCHIVE_OK &&
           archive_read_support_filter_zstd(reader) == ARCHIVE_OK &&
           archive_read_support_format_raw(reader) == ARCHIVE_OK &&
           archive_read_open_fd(reader, m_file.value(), readSize) == ARCHIVE_OK &&
           archive_read_next_header(reader, &everything) == ARCHIVE_OK &&
           // The file itself, and what it is compressed by.
           archive_filter_count(reader) == 2;
}

Result<std::span<const char>> CompressedStream::read()
{
    const Failure invalid(make_error_code(UnpackError::archiveInvalid));
    if (!m_isOpen && !open())
        return invalid;
    m_isOpen = true;
    const void *block = nullptr;
    std::size_t size = 0;
    la_int64_t offset = 0;
    const int state = archive_read_data_block(m_reader.get(), &block, &size, &offset);
    if (state == ARCHIVE_EOF) {
        if (isReadWhole())
            return std::span<const char>();
        return invalid;
    }
    if (state != ARCHIVE_OK || size == 0)
        return invalid;
    const std::span<const char> bytes(static_cast<const char *>(block), size);
    count(bytes);
    if (m_size > mostBytes)
        return invalid;
    return bytes;
}

/// Not every way of compressing cares for what follows its end.
bool CompressedStream::isReadWhole() const
{
    struct stat state{};
    return ::fstat(m_file.value(), &state) == 0 &&
           archive_filter_bytes(m_reader.get(), innermost) == state.st_size;
}

void CompressedStream::count(std::span<const char> bytes)
{
    const auto last = std::find_if(bytes.rbegin(), bytes.rend(), [](char byte) { return byte != 0; });
    if (last != bytes.rend())
        m_sizeWithoutZeros = m_size + (last.base() - bytes.begin());
    m_size += static_cast<std::int64_t>(bytes.size());
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/TarReader.h"

#include "update-unpacker/UnpackError.h"

#include <archive.h>
#include <archive_entry.h>

#include <sys/stat.h>

#include <cerrno>

namespace quorvane {
namespace {

/// POSIX: an archive ends with two blocks of zeros.
constexpr std::int64_t blockSize = 512;
constexpr std::int64_t endSize = 2 * blockSize;

la_ssize_t readStream(archive *reader, void *stream, const void **bytes)
{
    const auto read = static_cast<CompressedStream *>(stream)->read();
    if (!read) {
        archive_set_error(reader, EINVAL, "%s", read.error().message().c_str());
        return ARCHIVE_FATAL;
    }
    *bytes = read->data();
    return static_cast<la_ssize_t>(read->size());
}

ArchiveEntry::Kind kindOf(archive_entry *entry)
{
    using Kind = ArchiveEntry::Kind;
    if (archive_entry_hardlink(entry) || archive_entry_sparse_count(entry) > 0)
        return Kind::other;
    switch (archive_entry_filetype(entry)) {
    case AE_IFREG:
        if (archive_entry_size_is_set(entry) == 0)
            return Kind::other;
        return (archive_entry_perm(entry) & S_IXUSR) != 0 ? Kind::program : Kind::file;
    case AE_IFDIR:
        return Kind::folder;
    case AE_IFLNK:
        return Kind::link;
    default:
        return Kind::other;
    }
}

ArchiveEntry toEntry(archive_entry *from)
{
    // An absent text becomes an empty one, which no rule lets pass.
    ArchiveEntry entry{.path = archive_entry_pathname(from), .kind = kindOf(from)};
    if (entry.kind == ArchiveEntry::Kind::file || entry.kind == ArchiveEntry::Kind::program)
        entry.size = archive_entry_size(from);
    if (entry.kind == ArchiveEntry::Kind::link)
        entry.target = archive_entry_symlink(from);
    if (entry.kind == ArchiveEntry::Kind::folder && entry.path.endsWith('/'))
        entry.path.chop(1);
    return entry;
}

} // namespace

void TarReader::Free::operator()(archive *reader) const
{
    archive_read_free(reader);
}

TarReader::TarReader(CompressedStream &stream)
    : m_stream(stream)
    , m_reader(archive_read_new())
{
}

bool TarReader::open()
{
    archive *reader = m_reader.get();
    return reader && archive_read_support_format_tar(reader) == ARCHIVE_OK &&
           archive_read_open(reader, &m_stream, nullptr, readStream, nullptr) == ARCHIVE_OK;
}

Result<std::optional<ArchiveEntry>> TarReader::next()
{
    const Failure invalid(make_error_code(UnpackError::archiveInvalid));
    if (!m_isOpen && !open())
        return invalid;
    m_isOpen = true;
    archive_entry *entry = nullptr;
    const int state = archive_read_next_header(m_reader.get(), &entry);
    if (state == ARCHIVE_EOF && endsHere())
        return std::nullopt;
    // A warning is about something that tar does not understand: no update of ours.
    if (state != ARCHIVE_OK)
        return invalid;
    return toEntry(entry);
}

Result<std::span<const char>> TarReader::read()
{
    const void *block = nullptr;
    std::size_t size = 0;
    la_int64_t offset = 0;
    const int state = archive_read_data_block(m_reader.get(), &block, &size, &offset);
    if (state == ARCHIVE_EOF)
        return std::span<const char>();
    if (state != ARCHIVE_OK)
        return Failure(UnpackError::archiveInvalid);
    return std::span(static_cast<const char *>(block), size);
}

/// Whether the archive has its end where the library takes it to be, which is content with none.
bool TarReader::endsHere()
{
    for (;;) {
        const auto padding = m_stream.read();
        if (!padding)
            return false;
        if (padding->empty())
            break;
    }
    const std::int64_t end = archive_read_header_position(m_reader.get());
    return m_stream.sizeWithoutZeros() <= end && m_stream.size() >= end + endSize &&
           m_stream.size() % blockSize == 0;
}

} // namespace quorvane

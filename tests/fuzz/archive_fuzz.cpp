// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/Unpacker.h"

#include <QTemporaryDir>

#include <archive.h>
#include <archive_entry.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <set>
#include <string_view>
#include <vector>

using namespace quorvane;
namespace fs = std::filesystem;

namespace {

/// Puts the right sum into whatever looks like a header: no fuzzer finds it.
void mendSums(std::vector<char> &tar)
{
    constexpr std::size_t block = 512;
    for (std::size_t at = 0; at + block <= tar.size(); at += block) {
        const std::span header(tar.data() + at, block);
        if (std::string_view(header.data() + 257, 5) != "ustar")
            continue;
        std::ranges::fill(header.subspan(148, 8), ' ');
        unsigned sum = 0;
        for (const char byte : header)
            sum += static_cast<unsigned char>(byte);
        std::snprintf(header.data() + 148, 8, "%06o", sum);
    }
}

/// An archive of these bytes, as gzip packs it.
std::vector<char> packed(std::vector<char> bytes)
{
    mendSums(bytes);
    std::vector<char> result(bytes.size() * 2 + 65'536);
    std::size_t used = 0;
    archive *writer = archive_write_new();
    archive_entry *entry = archive_entry_new();
    archive_entry_set_filetype(entry, AE_IFREG);
    archive_write_set_format_raw(writer);
    archive_write_add_filter_gzip(writer);
    archive_write_set_options(writer, "gzip:compression-level=1");
    if (archive_write_open_memory(writer, result.data(), result.size(), &used) != ARCHIVE_OK ||
        archive_write_header(writer, entry) != ARCHIVE_OK ||
        archive_write_data(writer, bytes.data(), bytes.size()) < 0 ||
        archive_write_close(writer) != ARCHIVE_OK)
        qFatal("cannot pack: %s", archive_error_string(writer));
    archive_entry_free(entry);
    archive_write_free(writer);
    result.resize(used);
    return result;
}

FileDescriptor asFile(std::span<const char> bytes)
{
    FileDescriptor file(::memfd_create("archive", MFD_CLOEXEC));
    if (::pwrite(file.value(), bytes.data(), bytes.size(), 0) != static_cast<ssize_t>(bytes.size()))
        qFatal("cannot write the archive");
    return file;
}

void check(const fs::path &folder)
{
    std::set<fs::path> beside;
    for (const auto &entry : fs::directory_iterator(folder))
        beside.insert(entry.path().filename());
    if (beside != std::set<fs::path>{"beside", "out"} || fs::file_size(folder / "beside") != 0)
        qFatal("something outside was touched");
    const std::string top = (folder / "out/Quorvane").string();
    for (const auto &entry : fs::recursive_directory_iterator(folder / "out")) {
        const auto kind = entry.symlink_status();
        const auto mode = static_cast<unsigned>(kind.permissions());
        std::error_code loop;
        const std::string end = fs::weakly_canonical(entry.path(), loop).string();
        if (!loop && !(end + '/').starts_with(top + '/'))
            qFatal("%s leads to %s", entry.path().c_str(), end.c_str());
        if (!fs::is_symlink(kind) && mode != 0755 && !(fs::is_regular_file(kind) && mode == 0644))
            qFatal("%s has the mode %o", entry.path().c_str(), mode);
    }
}

} // namespace

/// Any bytes as an archive; the first of them says whether they are packed already.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir temporary(QStringLiteral("/dev/shm/quorvane-fuzz-XXXXXX"));
    static const fs::path folder = temporary.path().toStdString();
    if (size == 0)
        return 0;
    ::umask(0);
    const FileDescriptor beside(::open((folder / "beside").c_str(), O_CREAT | O_WRONLY | O_CLOEXEC, 0600));
    fs::create_directory(folder / "out");
    const std::vector<char> bytes(data + 1, data + size);
    FileDescriptor out(::open((folder / "out").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    (void)Unpacker(asFile(data[0] % 4 == 0 ? bytes : packed(bytes)), std::move(out)).run();
    check(folder);
    fs::remove_all(folder / "out");
    return 0;
}

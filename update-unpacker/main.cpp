// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "confinement/CallConfinement.h"
#include "confinement/ChildProcess.h"
#include "confinement/FileConfinement.h"
#include "confinement/LowestPriority.h"
#include "confinement/ResourceLimits.h"
#include "update-unpacker/UnpackError.h"
#include "update-unpacker/Unpacker.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <clocale>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace quorvane {
namespace {

using namespace std::chrono_literals;

constexpr const char *usage =
    "usage: update-unpacker ARCHIVE FOLDER\n"
    "ARCHIVE is a tar archive packed by xz, gzip or zstd; FOLDER is there and empty\n";

constexpr auto wholeLimit = 120s;
constexpr ResourceLimits limits{
    .processorTime = 60s,
    // Of the packers, zstd takes most: a window of 128 MB.
    .memory = 256'000'000,
    .fileSize = EntryRule::mostBytes,
};

FileDescriptor openArchive(const char *path)
{
    FileDescriptor file(::open(path, O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    struct stat state{};
    if (!file.isValid() || ::fstat(file.value(), &state) != 0 || !S_ISREG(state.st_mode))
        return {};
    return file;
}

FileDescriptor openEmptyFolder(const char *path)
{
    FileDescriptor folder(::open(path, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    std::error_code error;
    if (!folder.isValid() || !std::filesystem::is_empty(path, error))
        return {};
    return folder;
}

/// Libraries may comment on standard error, where only our one word belongs.
void muteLibraries()
{
    const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
    if (nowhere >= 0)
        ::dup2(nowhere, STDERR_FILENO);
}

/// Returns 0 or an `UnpackError`.
int unpackConfined(FileDescriptor archive, FileDescriptor folder)
{
    muteLibraries();
    ::umask(0);
    takeLowestPriority();
    limitResources(limits);
    confineToMaking(folder);
    denySystemCalls(FileCalls::make);
    const Result<void> unpacked = Unpacker(std::move(archive), std::move(folder)).run();
    return unpacked ? 0 : static_cast<int>(unpackErrorOf(unpacked.error()));
}

Result<void> run(const char *archivePath, const char *folderPath)
{
    FileDescriptor archive = openArchive(archivePath);
    if (!archive.isValid())
        return Failure(UnpackError::unpackerFailed);
    FileDescriptor folder = openEmptyFolder(folderPath);
    if (!folder.isValid())
        return Failure(UnpackError::writeFailed);
    ChildProcess process(
        [&archive, &folder] { return unpackConfined(std::move(archive), std::move(folder)); });
    (void)process.isOverWithin(wholeLimit);
    const std::optional<int> outcome = process.finish();
    if (outcome == 0)
        return {};
    return Failure(outcome ? static_cast<UnpackError>(*outcome) : UnpackError::unpackerFailed);
}

} // namespace
} // namespace quorvane

int main(int argc, char **argv)
{
    using namespace quorvane;
    if (argc != 3) {
        std::fputs(usage, stderr);
        return statusOf(UnpackError::unpackerFailed);
    }
    // Names in an archive are UTF-8, whatever the person's language.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    std::signal(SIGXFSZ, SIG_IGN);
    const Result<void> unpacked = run(argv[1], argv[2]);
    if (unpacked)
        std::_Exit(0);
    const UnpackError error = unpackErrorOf(unpacked.error());
    std::fprintf(stderr, "%s\n", errorText(error).c_str());
    std::fflush(nullptr);
    std::_Exit(statusOf(error));
}

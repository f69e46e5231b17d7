// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/Pipe.h"

#include "posix/SystemError.h"

#include <fcntl.h>
#include <unistd.h>

namespace quorvane {
namespace {

FileDescriptor aboveStandardStreams(FileDescriptor end)
{
    if (end.value() > STDERR_FILENO)
        return end;
    return FileDescriptor(::fcntl(end.value(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
}

Result<Pipe> makePipe(std::size_t ourEnd)
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        return Failure(systemError());
    FileDescriptor ours(ends[ourEnd]);
    FileDescriptor theirs(ends[1 - ourEnd]);
    Pipe pipe{aboveStandardStreams(std::move(ours)), aboveStandardStreams(std::move(theirs))};
    if (!pipe.ours.isValid() || !pipe.theirs.isValid() ||
        ::fcntl(pipe.ours.value(), F_SETFL, O_NONBLOCK) != 0)
        return Failure(systemError());
    return pipe;
}

} // namespace

Result<Pipe> Pipe::toProgram()
{
    return makePipe(1);
}

Result<Pipe> Pipe::fromProgram()
{
    return makePipe(0);
}

} // namespace quorvane

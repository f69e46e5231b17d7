// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "process/linux/PosixProcessRunner.h"

#include "process/linux/BrokenPipeSilence.h"
#include "process/linux/Pipe.h"
#include "process/linux/ProcessSupervision.h"

namespace quorvane {

Result<ProcessOutcome> PosixProcessRunner::run(const ProcessRequest &request) const
{
    const BrokenPipeSilence silence;
    Result<Pipe> input = Pipe::toProgram();
    Result<Pipe> output = Pipe::fromProgram();
    Result<Pipe> error = Pipe::fromProgram();
    for (const Result<Pipe> *pipe : {&input, &output, &error}) {
        if (!*pipe)
            return Failure(pipe->error());
    }

    // What fits into the pipe is there before the program is: one that ends at once, unread input or not, is
    // then always judged by how it ended and never by who was quicker.
    InputFeed feed(std::move(input->ours), request.input);
    if (const std::error_code failure = feed.writeSome())
        return Failure(failure);
    const SpawnPlan plan(input->theirs.value(), output->theirs.value(), error->theirs.value());
    Result<ChildProcess> child = ChildProcess::start(request, plan);
    if (!child)
        return Failure(child.error());
    for (Result<Pipe> *pipe : {&input, &output, &error})
        (*pipe)->theirs = {};

    ProcessSupervision supervision(*std::move(child),
                                   {.input = std::move(feed),
                                    .output = {std::move(output->ours), request.outputLimit},
                                    .error = {std::move(error->ours), request.errorLimit}},
                                   request.timeLimit);
    return supervision.attend();
}

} // namespace quorvane

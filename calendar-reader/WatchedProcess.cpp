// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/WatchedProcess.h"

#include "posix/FileDescriptor.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <ctime>
#include <memory>
#include <new>

namespace quorvane {
namespace {

constexpr int failed = -1;

/// Memory that outlives a fork as one and the same.
struct Unmap
{
    void operator()(RowGate *gate) const { ::munmap(gate, sizeof(RowGate)); }
};

std::unique_ptr<RowGate, Unmap> sharedGate()
{
    void *memory =
        ::mmap(nullptr, sizeof(RowGate), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return std::unique_ptr<RowGate, Unmap>(memory == MAP_FAILED ? nullptr : new (memory) RowGate);
}

std::chrono::nanoseconds processorTime(pid_t process)
{
    clockid_t clock{};
    timespec time{};
    if (::clock_getcpuclockid(process, &clock) != 0 || ::clock_gettime(clock, &time) != 0)
        return {};
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

/// Waits until the other end of the pipe `alive` is gone; false when the process has to be ended.
bool outlast(pid_t process, int alive, const RowGate &gate, Deadline deadline)
{
    constexpr int look = 50; // milliseconds
    std::int64_t steps = 0;
    std::chrono::nanoseconds rowBegan{};
    for (;;) {
        pollfd end{alive, POLLIN, 0};
        const int ready = ::poll(&end, 1, look);
        if (ready > 0)
            return true;
        if (std::chrono::steady_clock::now() > deadline || (ready < 0 && errno != EINTR))
            return false;
        const std::chrono::nanoseconds used = processorTime(process);
        if (gate.steps() == 0 || steps != gate.steps()) {
            steps = gate.steps();
            rowBegan = used;
        } else if (used - rowBegan > WatchedProcess::rowLimit) {
            return false;
        }
    }
}

int exitStatus(pid_t process)
{
    int state = 0;
    while (::waitpid(process, &state, 0) < 0) {
        if (errno != EINTR)
            return failed;
    }
    return WIFEXITED(state) ? WEXITSTATUS(state) : failed;
}

} // namespace

int WatchedProcess::run(Deadline deadline)
{
    const auto gate = sharedGate();
    if (!gate)
        return failed;
    for (;;) {
        const int status = runOnce(*gate, deadline);
        const bool isOver = std::chrono::steady_clock::now() > deadline;
        if (status != failed || isOver || !gate->closeToLastRow())
            return status;
    }
}

int WatchedProcess::runOnce(RowGate &gate, Deadline deadline)
{
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0)
        return failed;
    const FileDescriptor alive(ends[0]);
    FileDescriptor held(ends[1]);
    const pid_t parent = ::getpid();
    const pid_t process = ::fork();
    if (process < 0)
        return failed;
    if (process == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        if (::getppid() != parent)
            ::_exit(EXIT_FAILURE);
        ::_exit(m_work(gate));
    }
    held = FileDescriptor();
    if (!outlast(process, alive.value(), gate, deadline))
        ::kill(process, SIGKILL);
    return exitStatus(process);
}

} // namespace quorvane

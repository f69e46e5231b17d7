// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/WatchedProcess.h"

#include "confinement/ChildProcess.h"

#include <sys/mman.h>

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

/// Waits until the process is over or has to be ended.
void watch(ChildProcess &process, const RowGate &gate, Deadline deadline)
{
    std::int64_t steps = 0;
    std::chrono::nanoseconds rowBegan{};
    while (!process.isOverWithin(std::chrono::milliseconds(50))) {
        if (std::chrono::steady_clock::now() > deadline)
            return;
        const std::chrono::nanoseconds used = processorTime(process.id());
        if (gate.steps() == 0 || steps != gate.steps()) {
            steps = gate.steps();
            rowBegan = used;
        } else if (used - rowBegan > WatchedProcess::rowLimit) {
            return;
        }
    }
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
    ChildProcess process([this, &gate] { return m_work(gate); });
    if (process.id() != 0)
        watch(process, gate, deadline);
    return process.finish().value_or(failed);
}

} // namespace quorvane

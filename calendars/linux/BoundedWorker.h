// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarError.h"
#include "calendars/CalendarStore.h"
#include "calendars/ical/GlibPointer.h"
#include "core/Result.h"

#include <QCoroFuture>
#include <QCoroTask>
#include <QFuture>
#include <QPromise>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>

namespace quorvane {

/// One thread with a GLib main context of its own, on which the blocking calls of a calendar store run one at
/// a time, each with a bound on the time that its caller waits. Made, used and destroyed on the main thread.
///
/// The thread is never joined: nobody can say when a call into a stopped service or a hung file system comes
/// back. It ends by itself when it is free after its owner is gone. What jobs hold, they must therefore
/// share. A process whose worker is stuck when it wants to exit (`isAnyBusy`) has to leave by std::quick_exit
/// or _exit, since the thread may wake up while static objects are being destroyed.
class BoundedWorker final
{
public:
    using Limit = std::chrono::milliseconds;

    /// Leaves a store time to hand over its answer within `CalendarStore::answerTimeLimit`.
    static constexpr Limit defaultLimit{CalendarStore::answerTimeLimit * 95 / 100};

    /// `threadName` has at most 15 characters.
    explicit BoundedWorker(const char *threadName, Limit limit = defaultLimit);
    ~BoundedWorker();
    Q_DISABLE_COPY_MOVE(BoundedWorker)

    /// Runs `job` on the thread and resumes with its result, on the caller's thread. The job is asked to stop
    /// when 7/8 of the limit are over, so that it can hand over what it has; at the limit the caller gets
    /// `CalendarError::timedOut`, and so does, at once, every later caller until the job has really ended.
    template<class T>
    [[nodiscard]] QCoro::Task<Result<T>> run(std::function<Result<T>(std::stop_token)> job);

    /// Runs `last` on the thread when it is free: the place to let go of what belongs to the thread.
    void post(std::function<void()> last);

    [[nodiscard]] Limit limit() const { return m_limit; }

    /// Whether any worker in this process is at work, or stuck. Callable from any thread.
    [[nodiscard]] static bool isAnyBusy();

private:
    struct Thread;
    template<class T>
    struct Answer;

    static bool begin(const std::shared_ptr<Thread> &thread);
    static void submit(const std::shared_ptr<Thread> &thread, std::function<void()> job);
    static void end(const std::shared_ptr<Thread> &thread);

    std::shared_ptr<Thread> m_thread;
    Limit m_limit;
};

/// What the worker and the waiting caller share; whoever settles it first wins.
template<class T>
struct BoundedWorker::Answer
{
    QPromise<void> promise;
    std::stop_source stop;
    std::atomic_flag isSettled;
    std::optional<Result<T>> value;

    void settle(Result<T> result)
    {
        if (isSettled.test_and_set())
            return;
        value.emplace(std::move(result));
        promise.finish();
    }
};

template<class T>
QCoro::Task<Result<T>> BoundedWorker::run(std::function<Result<T>(std::stop_token)> job)
{
    const std::shared_ptr<Thread> thread = m_thread;
    const Limit limit = m_limit;
    if (!begin(thread))
        co_return Failure(make_error_code(CalendarError::timedOut));

    const auto answer = std::make_shared<Answer<T>>();
    answer->promise.start();
    const QFuture<void> settled = answer->promise.future();
    QTimer patience;
    QTimer bound;
    for (QTimer *timer : {&patience, &bound})
        timer->setSingleShot(true);
    QObject::connect(&patience, &QTimer::timeout, &patience, [answer] { answer->stop.request_stop(); });
    QObject::connect(&bound, &QTimer::timeout, &bound,
                     [answer] { answer->settle(Failure(make_error_code(CalendarError::timedOut))); });
    patience.start(limit * 7 / 8);
    bound.start(limit);
    submit(thread, [thread, answer, job = std::move(job)] {
        Result<T> result = job(answer->stop.get_token());
        end(thread);
        answer->settle(std::move(result));
    });
    co_await settled;
    co_return std::move(*answer->value);
}

} // namespace quorvane

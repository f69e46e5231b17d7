// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoroFuture>
#include <QCoroTask>
#include <QPromise>
#include <QThread>
#include <QTimer>

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace quorvane {

/// Runs `job` on a thread of its own and resumes on the caller's with the result; absent when it took longer
/// than `limit`, as on a file system that hangs. The thread is left to itself then: what the job uses it must
/// hold or share.
template<class T>
QCoro::Task<std::optional<T>> offThread(std::function<T()> job, std::chrono::milliseconds limit)
{
    struct Answer
    {
        QPromise<void> promise;
        std::atomic_flag isSettled;
        std::optional<T> value;

        void settle(std::optional<T> result)
        {
            if (isSettled.test_and_set())
                return;
            value = std::move(result);
            promise.finish();
        }
    };
    const auto answer = std::make_shared<Answer>();
    answer->promise.start();
    const QFuture<void> settled = answer->promise.future();
    QTimer bound;
    bound.setSingleShot(true);
    QObject::connect(&bound, &QTimer::timeout, &bound, [answer] { answer->settle(std::nullopt); });
    bound.start(limit);
    QThread *thread = QThread::create([answer, job = std::move(job)] { answer->settle(job()); });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    thread->start(QThread::LowPriority);
    co_await settled;
    co_return std::move(answer->value);
}

} // namespace quorvane

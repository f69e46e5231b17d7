// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoroFuture>
#include <QCoroTask>
#include <QPromise>
#include <QThread>
#include <QTimer>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <utility>

namespace quorvane {

/// How long a question about a folder may take: it may lie on a disk that has to start up first, or on a
/// network that is gone.
inline constexpr std::chrono::milliseconds folderAnswerTime{5'000};

/// Runs `job` on a thread of its own and resumes on the caller's with the result, never before the caller is
/// back in its event loop; absent when it took longer than `limit`, as on a file system that hangs. The
/// thread is left to itself then: what the job uses it must hold or share. Until it ends, if ever, it is
/// counted in `overdue`, which is for calls from one thread.
template<class T>
QCoro::Task<std::optional<T>> offThread(std::function<T()> job, std::chrono::milliseconds limit,
                                        std::shared_ptr<int> overdue = std::make_shared<int>(0))
{
    const auto value = std::make_shared<std::optional<T>>();
    QThread *thread = QThread::create([value, job = std::move(job)] { *value = job(); });
    QPromise<void> waiting;
    waiting.start();
    const QFuture<void> waited = waiting.future();
    QTimer bound;
    bool isDone = false;
    const auto isOverdue = std::make_shared<bool>(false);
    QObject::connect(thread, &QThread::finished, &bound, [&waiting, &isDone] {
        isDone = true;
        waiting.finish();
    });
    QObject::connect(&bound, &QTimer::timeout, &bound, [&waiting, &isDone, overdue, isOverdue] {
        if (isDone)
            return;
        *isOverdue = true;
        ++*overdue;
        waiting.finish();
    });
    QObject::connect(thread, &QThread::finished, thread, [thread, overdue, isOverdue] {
        if (*isOverdue)
            --*overdue;
        thread->deleteLater();
    });
    bound.setSingleShot(true);
    bound.start(limit);
    thread->start(QThread::LowPriority);
    co_await waited;
    // Until the thread is done the value is its own.
    co_return isDone ? std::move(*value) : std::nullopt;
}

} // namespace quorvane

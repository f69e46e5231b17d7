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

/// Runs `job` on a thread of its own and resumes on the caller's with the result, never before the caller is
/// back in its event loop; absent when it took longer than `limit`, as on a file system that hangs. The
/// thread is left to itself then: what the job uses it must hold or share.
template<class T>
QCoro::Task<std::optional<T>> offThread(std::function<T()> job, std::chrono::milliseconds limit)
{
    const auto value = std::make_shared<std::optional<T>>();
    QThread *thread = QThread::create([value, job = std::move(job)] { *value = job(); });
    QPromise<void> waiting;
    waiting.start();
    const QFuture<void> waited = waiting.future();
    QTimer bound;
    bool isDone = false;
    QObject::connect(thread, &QThread::finished, &bound, [&waiting, &isDone] {
        isDone = true;
        waiting.finish();
    });
    QObject::connect(&bound, &QTimer::timeout, &bound, [&waiting] { waiting.finish(); });
    QObject::connect(thread, &QThread::finished, thread, &QObject::deleteLater);
    bound.setSingleShot(true);
    bound.start(limit);
    thread->start(QThread::LowPriority);
    co_await waited;
    // Until the thread is done the value is its own.
    co_return isDone ? std::move(*value) : std::nullopt;
}

} // namespace quorvane

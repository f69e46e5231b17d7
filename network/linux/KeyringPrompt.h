// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusObjectPath>
#include <QDBusVariant>
#include <QObject>
#include <QPromise>
#include <QVariant>
#include <QVariantList>

#include <chrono>

class QDBusPendingCallWatcher;

namespace quorvane {

/// A question that the keyring service puts to the person, such as for a password. For one use, main thread
/// only.
///
/// It is never taken back: gnome-keyring 42 aborts when that happens to a question on the screen. One that
/// nobody answers in time stays there and its answer counts for the next call.
class KeyringPrompt final : public QObject
{
    Q_OBJECT

public:
    /// The object that a call has made, as told by its answer: by name, or as what comes of a question.
    [[nodiscard]] static QCoro::Task<Result<QDBusObjectPath>>
    madeObject(QDBusConnection bus, QVariantList answer, std::chrono::milliseconds answerTime);

    KeyringPrompt(QDBusConnection bus, QDBusObjectPath prompt);

    /// Shows the question and resumes with what came of it. Fails with `std::errc::operation_canceled` when
    /// the person or the service turned it down, `std::errc::timed_out` after `answerTime`, or as
    /// `KeyringCalls::answer` does.
    [[nodiscard]] QCoro::Task<Result<QVariant>> ask(std::chrono::milliseconds answerTime);

private:
    Q_SLOT void onCompleted(bool isDismissed, const QDBusVariant &result);
    Q_SLOT void onServiceGone();
    void onShown(QDBusPendingCallWatcher *call);
    void settle(Result<QVariant> outcome);

    QDBusConnection m_bus;
    QDBusObjectPath m_prompt;
    QPromise<Result<QVariant>> m_outcome;
};

} // namespace quorvane

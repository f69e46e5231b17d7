// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QHash>
#include <QObject>
#include <QPromise>
#include <QVariantMap>

#include <optional>

namespace quorvane {

/// One conversation with the desktop portal, whose answer waits for a person: the call returns the path of a
/// request object, and that object tells the answer by a signal (org.freedesktop.portal.Request). Main
/// thread only; for one call.
class PortalRequest final : public QObject
{
    Q_OBJECT

public:
    static const QString service;
    static const QString path;

    enum class Outcome {
        answered,
        /// By the person, or since the portal went away.
        cancelled,
        /// The portal ended it by itself.
        failed,
    };
    struct Response
    {
        Outcome outcome = Outcome::cancelled;
        /// What was answered.
        QVariantMap results;
    };

    /// Listens from now on, so that no answer is too quick for it.
    explicit PortalRequest(QDBusConnection bus);

    /// For the call's option `handle_token`.
    [[nodiscard]] const QString &token() const { return m_token; }

    /// Sends the call and resumes with the answer. Fails with `std::errc::not_supported` when the portal does
    /// not take the call within some seconds; the answer itself may take any time.
    [[nodiscard]] QCoro::Task<Result<Response>> send(QDBusMessage call);

private:
    Q_SLOT void onResponse(uint code, const QVariantMap &results, const QDBusMessage &signal);
    Q_SLOT void onPortalGone();
    void settle();

    QDBusConnection m_bus;
    QString m_token;
    /// The request object; empty until the portal names it.
    QString m_handle;
    /// By request object: those of other conversations come by as well.
    QHash<QString, Response> m_responses;
    bool m_isPortalGone = false;
    QPromise<Response> m_answer;
};

} // namespace quorvane

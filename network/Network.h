// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Meeting.h"
#include "core/Result.h"
#include "network/FormFields.h"
#include "network/HttpsClient.h"
#include "network/NetworkSetup.h"
#include "network/OKResponse.h"
#include "network/PushKind.h"
#include "network/ReceiptResponse.h"
#include "network/ServerState.h"

#include <QCoroTask>
#include <QObject>

#include <optional>
#include <vector>

namespace quorvane {

/// The phone service and the user's own server. Each operation is one request, made of the settings and
/// credentials as they are then; nothing is kept between them and nothing is repeated. They end within the
/// setup's time limit and the keyring's, and fail with `NetworkError`, with the decoder's `JsonError`, or
/// with a `transportError` (`OperationCanceledError` for those that this object's end has cut off). Main
/// thread only.
class Network final : public QObject
{
    Q_OBJECT

public:
    explicit Network(NetworkSetup setup);

    /// Sends the phone's alert for a meeting and returns the receipt, if the service gave one.
    [[nodiscard]] QCoro::Task<Result<std::optional<QString>>> push(Meeting meeting, PushKind kind);

    /// How the message with the receipt `id` stands: 30 letters and digits, all else is `invalidResponse`
    /// without a request, as in the two below. The service wants 5 seconds between two queries.
    [[nodiscard]] QCoro::Task<Result<ReceiptResponse>> receipt(QString id);
    /// Stops the repetitions of one message.
    [[nodiscard]] QCoro::Task<Result<void>> cancel(QString receipt);
    /// Stops the repetitions of every message with this tag, 64 lower-case hexadecimal digits.
    [[nodiscard]] QCoro::Task<Result<void>> cancelTag(QString tag);

    /// A form's body, its fields sorted by name.
    [[nodiscard]] static QByteArray form(FormFields fields);

    /// The address of `path` on the user's own server, or `configuration`.
    [[nodiscard]] Result<QUrl> serverURL(const QString &path) const;
    /// The same for a server at `address`.
    [[nodiscard]] static Result<QUrl> serverURL(const QString &address, const QString &path);

    /// The server's schedule, the phone's acknowledgments and its health.
    [[nodiscard]] QCoro::Task<Result<ServerState>> state();
    /// Uploads this machine's schedule.
    [[nodiscard]] QCoro::Task<Result<OKResponse>> snapshot(const std::vector<Meeting> &meetings);
    /// Removes what `snapshot` has uploaded.
    [[nodiscard]] QCoro::Task<Result<OKResponse>> removeSnapshot();
    /// Reports that the meeting `id` was acknowledged here.
    [[nodiscard]] QCoro::Task<Result<OKResponse>> ack(QString id);
    /// Hands the phone service's application token and user key over to the server.
    [[nodiscard]] QCoro::Task<Result<OKResponse>> pushover(QString token, QString user);
    /// Asks the server for a test alert.
    [[nodiscard]] QCoro::Task<Result<OKResponse>> test();

private:
    [[nodiscard]] QUrl serviceURL(const QString &path) const;
    [[nodiscard]] QCoro::Task<Result<QString>> phoneCredential(QString account);
    [[nodiscard]] QCoro::Task<Result<void>> stop(QString path);

    template<class Record>
    [[nodiscard]] QCoro::Task<Result<Record>> server(QString path, std::optional<QByteArray> body);

    NetworkSetup m_setup;
    HttpsClient m_client;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/Network.h"

#include "core/Characters.h"
#include "network/Decoding.h"
#include "network/NetworkError.h"
#include "network/PushMessage.h"
#include "network/PushResponse.h"
#include "network/Secrets.h"
#include "network/TransportError.h"

#include <QPointer>
#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qsizetype credentialLength = 30;

bool isReceipt(const QString &text)
{
    static const QRegularExpression form(u"\\A[A-Za-z0-9]{30}\\z"_s);
    return form.match(text).hasMatch();
}

bool isTag(const QString &text)
{
    static const QRegularExpression form(u"\\A[a-f0-9]{64}\\z"_s);
    return form.match(text).hasMatch();
}

HttpsRequest formRequest(const QUrl &url, const FormFields &fields)
{
    return {.url = url, .contentType = "application/x-www-form-urlencoded", .body = Network::form(fields)};
}

} // namespace

Network::Network(NetworkSetup setup)
    : m_setup(std::move(setup))
    , m_client(m_setup.trust, m_setup.timeLimit)
{
}

QCoro::Task<Result<std::optional<QString>>> Network::push(Meeting meeting, PushKind kind)
{
    // Both before the first wait. After the second one, that it succeeded says that this still lives.
    auto userTask = phoneCredential(Secrets::pushoverUser);
    auto tokenTask = phoneCredential(Secrets::pushoverToken);
    const Result<QString> user = co_await userTask;
    const Result<QString> token = co_await tokenTask;
    if (!user || !token)
        co_return Failure(user ? token.error() : user.error());
    Result<FormFields> fields = PushMessage::fields(meeting, kind, m_setup.now());
    if (!fields)
        co_return Failure(fields.error());
    fields->emplace_back(u"token"_s, *token);
    fields->emplace_back(u"user"_s, *user);
    const HttpsRequest request = formRequest(serviceURL(u"/1/messages.json"_s), *fields);
    const Result<QByteArray> answer = co_await m_client.send(request);
    const Result<PushResponse> response = co_await decoded<PushResponse>(answer);
    if (!response)
        co_return Failure(response.error());
    if (response->status != 1)
        co_return Failure(make_error_code(NetworkError::invalidResponse));
    // One that could never be asked about is none.
    const std::optional<QString> receipt =
        response->receipt && isReceipt(*response->receipt) ? response->receipt : std::nullopt;
    co_return receipt;
}

QCoro::Task<Result<ReceiptResponse>> Network::receipt(QString id)
{
    if (!isReceipt(id))
        co_return Failure(make_error_code(NetworkError::invalidResponse));
    const Result<QString> token = co_await phoneCredential(Secrets::pushoverToken);
    if (!token)
        co_return Failure(token.error());
    QUrl url = serviceURL(u"/1/receipts/%1.json"_s.arg(id));
    const FormFields query{{u"token"_s, *token}};
    url.setQuery(QString::fromLatin1(form(query)));
    const HttpsRequest request{.url = url, .contentType = "application/json"};
    const Result<QByteArray> answer = co_await m_client.send(request);
    const Result<ReceiptResponse> response = co_await decoded<ReceiptResponse>(answer);
    if (response && response->status != 1)
        co_return Failure(make_error_code(NetworkError::invalidResponse));
    co_return response;
}

QCoro::Task<Result<void>> Network::cancel(QString receipt)
{
    if (!isReceipt(receipt))
        co_return Failure(make_error_code(NetworkError::invalidResponse));
    co_return co_await stop(u"/1/receipts/%1/cancel.json"_s.arg(receipt));
}

QCoro::Task<Result<void>> Network::cancelTag(QString tag)
{
    if (!isTag(tag))
        co_return Failure(make_error_code(NetworkError::invalidResponse));
    co_return co_await stop(u"/1/receipts/cancel_by_tag/%1.json"_s.arg(tag));
}

QCoro::Task<Result<void>> Network::stop(QString path)
{
    const Result<QString> token = co_await phoneCredential(Secrets::pushoverToken);
    if (!token)
        co_return Failure(token.error());
    const FormFields fields{{u"token"_s, *token}};
    const HttpsRequest request = formRequest(serviceURL(path), fields);
    const Result<QByteArray> answer = co_await m_client.send(request);
    if (!answer)
        co_return Failure(answer.error());
    co_return Result<void>();
}

QCoro::Task<Result<QString>> Network::phoneCredential(QString account)
{
    const QPointer<Network> self(this);
    const std::optional<QString> value = co_await m_setup.secrets.get(account);
    if (!self)
        co_return Failure(transportError(QNetworkReply::OperationCanceledError));
    if (!value || Characters::count(*value) != credentialLength)
        co_return Failure(make_error_code(NetworkError::configuration));
    const Result<QString> credential = *value;
    co_return credential;
}

QUrl Network::serviceURL(const QString &path) const
{
    QUrl url = m_setup.phoneService;
    url.setPath(path);
    return url;
}

QByteArray Network::form(FormFields fields)
{
    std::ranges::stable_sort(fields, {}, &FormFields::value_type::first);
    QByteArrayList pairs;
    for (const auto &[name, value] : fields)
        pairs.append(QUrl::toPercentEncoding(name) + '=' + QUrl::toPercentEncoding(value));
    return pairs.join('&');
}

} // namespace quorvane

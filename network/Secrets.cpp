// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/Secrets.h"

#include "network/SecretError.h"
#include "network/SecretStore.h"

#include <QStringDecoder>

namespace quorvane {

namespace {

std::optional<QString> textOf(const QByteArray &bytes)
{
    if (bytes.size() > Secrets::longest)
        return std::nullopt;
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = decoder(bytes);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

} // namespace

Secrets::Secrets(SecretStore &store)
    : m_store(store)
{
}

QCoro::Task<std::optional<QString>> Secrets::get(QString account) const
{
    const Result<std::optional<QString>> text = co_await read(account);
    co_return text ? *text : std::nullopt;
}

QCoro::Task<Result<std::optional<QString>>> Secrets::read(QString account) const
{
    const Result<std::optional<QByteArray>> bytes = co_await m_store.read(account);
    if (!bytes)
        co_return Failure(bytes.error());
    if (!*bytes)
        co_return std::optional<QString>();
    std::optional<QString> text = textOf(**bytes);
    if (!text)
        co_return Failure(std::make_error_code(std::errc::illegal_byte_sequence));
    co_return std::move(text);
}

QCoro::Task<Result<void>> Secrets::set(QString value, QString account) const
{
    const QByteArray bytes = value.toUtf8();
    if (bytes.size() <= longest && co_await m_store.write(account, bytes))
        co_return Result<void>();
    co_return Failure(make_error_code(SecretError::writeFailed));
}

} // namespace quorvane

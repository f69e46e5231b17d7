// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/Credentials.h"

#include "core/Characters.h"
#include "network/Secrets.h"

namespace quorvane {

Credentials::Credentials(Secrets &secrets)
    : m_secrets(secrets)
{
}

QCoro::Task<Result<void>> Credentials::save(CredentialEdits edits) const
{
    Secrets &secrets = m_secrets;
    const std::vector<std::pair<QString, std::optional<QString>>> values{
        {Secrets::pushoverUser, edits.pushoverUser},
        {Secrets::pushoverToken, edits.pushoverToken},
        {Secrets::serverToken, edits.serverToken}};
    for (const auto &[account, value] : values) {
        if (!value)
            continue;
        const Result<void> stored = co_await secrets.set(value->trimmed(), account);
        if (!stored)
            co_return Failure(stored.error());
    }
    co_return Result<void>();
}

QCoro::Task<Result<CredentialHints>> Credentials::hints() const
{
    Secrets &secrets = m_secrets;
    CredentialHints hints;
    const auto user = co_await secrets.read(Secrets::pushoverUser);
    if (!user)
        co_return Failure(user.error());
    const auto token = co_await secrets.read(Secrets::pushoverToken);
    if (!token)
        co_return Failure(token.error());
    const auto server = co_await secrets.read(Secrets::serverToken);
    if (!server)
        co_return Failure(server.error());
    hints.pushoverUser = hint(*user);
    hints.pushoverToken = hint(*token);
    hints.serverToken = hint(*server);
    co_return Result<CredentialHints>(hints);
}

QCoro::Task<Result<std::optional<Credentials::PhonePair>>> Credentials::phonePair() const
{
    using Answer = Result<std::optional<PhonePair>>;
    Secrets &secrets = m_secrets;
    const auto user = co_await secrets.read(Secrets::pushoverUser);
    if (!user)
        co_return Failure(user.error());
    const auto token = co_await secrets.read(Secrets::pushoverToken);
    if (!token)
        co_return Failure(token.error());
    const auto fits = [](const std::optional<QString> &value) {
        return value && Characters::count(*value) == phoneLength;
    };
    if (!fits(*user) || !fits(*token))
        co_return Answer(std::nullopt);
    PhonePair pair{**user, **token};
    co_return Answer(std::move(pair));
}

std::optional<QString> Credentials::hint(const std::optional<QString> &value)
{
    if (!value || value->isEmpty())
        return std::nullopt;
    const qsizetype length = Characters::count(*value);
    if (length < shortestHinted)
        return QString();
    return value->mid(Characters::first(*value, length - hintLength).size());
}

} // namespace quorvane

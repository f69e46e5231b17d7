// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commands/SecretCommand.h"

#include "commands/ExitStatus.h"
#include "network/Secrets.h"

#include <QByteArray>
#include <QStringDecoder>

#include <array>
#include <optional>

namespace quorvane::SecretCommand {

namespace {

/// In bytes; white space around a secret is not bounded by what may be stored.
constexpr qsizetype longestInput = 4 * Secrets::longest;

std::optional<QByteArray> contentOf(std::FILE *input)
{
    QByteArray content;
    std::array<char, 65'536> piece{};
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), input)) {
        content.append(piece.data(), static_cast<qsizetype>(count));
        if (content.size() > longestInput)
            return std::nullopt;
    }
    return std::ferror(input) == 0 ? std::optional(content) : std::nullopt;
}

QString secretIn(const QByteArray &content)
{
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    const QString text = decoder(content);
    return decoder.hasError() ? QString() : text.trimmed();
}

} // namespace

bool isAccount(const QString &account)
{
    return account == Secrets::pushoverUser || account == Secrets::pushoverToken ||
           account == Secrets::serverToken;
}

QCoro::Task<int> handInSecret(QString account, std::FILE *input, const Secrets &secrets)
{
    if (!isAccount(account))
        co_return ExitStatus::unknownAccount;
    const std::optional<QByteArray> content = contentOf(input);
    if (!content)
        co_return ExitStatus::secretNotStored;
    const Result<void> stored = co_await secrets.set(secretIn(*content), account);
    co_return stored ? ExitStatus::success : ExitStatus::secretNotStored;
}

} // namespace quorvane::SecretCommand

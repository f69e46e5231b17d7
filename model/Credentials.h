// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"
#include "model/CredentialEdits.h"
#include "model/CredentialHints.h"

#include <QCoroTask>
#include <QString>

#include <optional>

namespace quorvane {

class Secrets;

/// What the settings do with the credentials in the keyring. No stored value leaves it but the pair that the
/// user's own server is given.
class Credentials final
{
public:
    /// Number of characters of each credential of the phone service.
    static constexpr qsizetype phoneLength = 30;
    /// What the user's own server wants at least, in characters.
    static constexpr qsizetype shortestServerToken = 32;
    /// A hint is as long as `hintLength`, and of values of at least `shortestHinted` characters only.
    static constexpr qsizetype hintLength = 4;
    static constexpr qsizetype shortestHinted = 12;

    struct PhonePair
    {
        QString user;
        QString token;
    };

    /// `secrets` outlives this.
    explicit Credentials(Secrets &secrets);

    /// Stores what `edits` holds, trimmed, in the order user, token, server's token; stops at the first
    /// failure, whose error it gives.
    [[nodiscard]] QCoro::Task<Result<void>> save(CredentialEdits edits) const;

    /// How the stored values end. Fails when the keyring does not answer.
    [[nodiscard]] QCoro::Task<Result<CredentialHints>> hints() const;

    /// The credentials of the phone service; absent unless both are there and have the right length. Fails
    /// when the keyring does not answer.
    [[nodiscard]] QCoro::Task<Result<std::optional<PhonePair>>> phonePair() const;

    /// The hint for one value; absent for an empty one.
    [[nodiscard]] static std::optional<QString> hint(const std::optional<QString> &value);

private:
    Secrets &m_secrets;
};

} // namespace quorvane

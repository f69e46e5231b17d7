// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QCoroTask>
#include <QLatin1StringView>
#include <QString>

#include <optional>

namespace quorvane {

class SecretStore;

/// Credentials, and the meetings added by hand, as texts in the user's keyring. It knows nothing of what they
/// mean. Both operations are tasks, because a keyring is a program of its own and nothing here may wait for
/// it. There is no removal: a cleared field is an empty text, which callers treat as not configured.
class Secrets final
{
public:
    /// The accounts in use.
    static constexpr QLatin1StringView pushoverUser{"pushover-user"};
    static constexpr QLatin1StringView pushoverToken{"pushover-token"};
    static constexpr QLatin1StringView serverToken{"server-token"};
    static constexpr QLatin1StringView manualMeetings{"manual-meetings"};

    /// The longest text that is stored or read, in bytes of UTF-8.
    static constexpr qsizetype longest = 1'000'000;

    /// `store` must outlive this.
    explicit Secrets(SecretStore &store);

    /// The text; absent when there is none, when it is not valid UTF-8 or too long, and whenever the keyring
    /// does not hand it out, as while it is locked: asking again later may find it.
    [[nodiscard]] QCoro::Task<std::optional<QString>> get(QString account) const;

    /// As `get`, but fails with the store's error when the keyring did not answer, and with
    /// `std::errc::illegal_byte_sequence` when what it holds is no text, so that whoever is about to write
    /// can tell an account without a value from one that could not be read.
    [[nodiscard]] QCoro::Task<Result<std::optional<QString>>> read(QString account) const;

    /// Replaces the text, or adds it; the desktop may ask the person to unlock the keyring first. Fails with
    /// `SecretError::writeFailed`.
    [[nodiscard]] QCoro::Task<Result<void>> set(QString value, QString account) const;

private:
    SecretStore &m_store;
};

} // namespace quorvane

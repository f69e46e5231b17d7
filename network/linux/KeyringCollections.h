// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/linux/KeyringCalls.h"

#include <chrono>

namespace quorvane {

/// The keyrings, which may have to be unlocked or made first. Then the service asks the person by itself; its
/// question may stay for `answerTime`. Fails as `KeyringCalls::answer` and `KeyringPrompt::ask` do.
class KeyringCollections final
{
public:
    KeyringCollections(KeyringCalls calls, std::chrono::milliseconds answerTime);

    /// Unlocks an item or a keyring; nothing happens to one that is not locked.
    [[nodiscard]] QCoro::Task<Result<void>> unlock(QDBusObjectPath object) const;

    /// The default keyring, unlocked, and made when there is none.
    [[nodiscard]] QCoro::Task<Result<QDBusObjectPath>> forNewItems() const;

private:
    [[nodiscard]] QCoro::Task<Result<QDBusObjectPath>> named(QString alias) const;
    [[nodiscard]] QCoro::Task<Result<QDBusObjectPath>> create() const;

    KeyringCalls m_calls;
    std::chrono::milliseconds m_answerTime;
};

} // namespace quorvane

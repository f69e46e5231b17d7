// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

namespace quorvane {

/// By what the user recognises the stored credentials: the last four characters of each. Absent when nothing
/// is stored, empty when the value is so short that its end would give away too much.
struct CredentialHints
{
    std::optional<QString> pushoverUser;
    std::optional<QString> pushoverToken;
    std::optional<QString> serverToken;

    bool operator==(const CredentialHints &) const = default;
};

} // namespace quorvane

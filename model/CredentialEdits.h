// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

#include <optional>

namespace quorvane {

/// Credentials as the user typed them anew. What is absent stays as it is stored; what is empty is cleared.
struct CredentialEdits
{
    std::optional<QString> pushoverUser;
    std::optional<QString> pushoverToken;
    std::optional<QString> serverToken;
};

} // namespace quorvane

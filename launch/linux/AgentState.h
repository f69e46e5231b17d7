// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>

#include <optional>

/// What `systemctl show --property=LoadState,MainPID` says of the agent.
namespace quorvane::AgentState {

/// The id of the agent's process; absent when it does not run and when the answer holds no number. Fails when
/// the agent is not loaded: it is masked, broken, or gone.
[[nodiscard]] Result<std::optional<qint32>> processFrom(const QByteArray &answer);

} // namespace quorvane::AgentState

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

/// A copy of the program that runs already, as one sees it that has no application object yet. `argc` and
/// `argv` are those of `main`.
namespace quorvane::RunningCopy {

/// Has a running copy do what this one was started for. False when there is none that answers.
[[nodiscard]] bool activate(int argc, char **argv, const QStringList &arguments);

/// Whether the service manager's copy runs, if need be from now on, so that this process must end with status
/// 0. It has been asked to do what this one was started for.
[[nodiscard]] bool handOverToAgent(int argc, char **argv, const QStringList &arguments);

} // namespace quorvane::RunningCopy

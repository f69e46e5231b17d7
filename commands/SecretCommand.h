// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoroTask>
#include <QString>

#include <cstdio>

namespace quorvane {

class Secrets;

/// Takes a credential over from a pipe or a file, so that it is never part of an argument list. It prints
/// nothing.
namespace SecretCommand {

/// Whether a credential of this name can be handed in.
[[nodiscard]] bool isAccount(const QString &account);

/// Reads `input` to its end and stores what it says, without white space and line breaks around it, as the
/// account's secret; input that is not valid UTF-8 counts as empty. Gives an `ExitStatus`: `unknownAccount`
/// before anything is read; `secretNotStored` also when the input cannot be read or is longer than any
/// secret, since what is stored must not be lost to that. Blocks while it reads. `secrets` must outlive the
/// task.
[[nodiscard]] QCoro::Task<int> handInSecret(QString account, std::FILE *input, const Secrets &secrets);

} // namespace SecretCommand
} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "commands/PrintLine.h"

#include <QString>

#include <chrono>
#include <functional>

/// Says whether the program works on this machine, whatever happens to a program that tries.
namespace quorvane::SelfTestCommand {

struct Finding
{
    /// `success` or `selfTestFailed`.
    int status = 0;
    /// What there is to say, as one sentence.
    QString sentence;
};

/// After which a test that has not ended counts as failed.
inline constexpr std::chrono::seconds timeLimit{20};

/// Runs the test in a process of its own, so that one which crashes or hangs is told of too, and prints its
/// sentence. The exit status. To be called before there are threads.
[[nodiscard]] int run(const std::function<Finding()> &test, const PrintLine &print);

} // namespace quorvane::SelfTestCommand

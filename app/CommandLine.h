// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "commands/ConnectionCommand.h"

#include <QString>

/// Puts together what each command needs and no more, and carries it out. Those that have to wait for
/// somebody end the process; the others give its exit status.
namespace quorvane::CommandLine {

[[nodiscard]] int renderPreviews(const QString &folder);
[[nodiscard]] int setSecret(const QString &account);
[[nodiscard]] int checkConnections(ConnectionCommand::Mode mode);
[[nodiscard]] int disableLoginService();
[[nodiscard]] int enableLogin();
[[nodiscard]] int tellCalendarStatus();
[[nodiscard]] int createTestMeeting();
[[nodiscard]] int selfTest();

} // namespace quorvane::CommandLine

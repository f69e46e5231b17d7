// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "commands/PrintLine.h"

namespace quorvane {

class LoginItem;
class ServiceManager;

/// Has the program started at login, or no longer started twice. Both give an `ExitStatus`: `success` or
/// `loginItemFailed`.
namespace LoginCommands {

/// Where the service manager starts the program already, registers nothing, but takes back what
/// `disableDuplicate` did to an entry that came with the system.
[[nodiscard]] int enable(const ServiceManager &manager, LoginItem &item, const PrintLine &print);

/// Takes away the desktop's own entry, which duplicates the service manager's agent.
[[nodiscard]] int disableDuplicate(LoginItem &item, const PrintLine &print);

} // namespace LoginCommands
} // namespace quorvane

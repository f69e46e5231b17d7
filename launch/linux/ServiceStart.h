// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Whether the service manager started this very process, as at login: nobody has asked for a window then.
/// systemd.exec(5), SYSTEMD_EXEC_PID.
[[nodiscard]] bool isStartedAsService();

} // namespace quorvane

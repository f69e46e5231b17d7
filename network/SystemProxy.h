// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoroTask>
#include <QNetworkProxy>
#include <QUrl>

#include <chrono>

namespace quorvane {

/// The proxy that the desktop's or the environment's settings name for `url`; none for this machine, when
/// they name none, or when they take longer than `limit`, as a proxy script on a server that hangs does. They
/// are asked on a thread of their own, which is left to itself at the limit.
[[nodiscard]] QCoro::Task<QNetworkProxy> systemProxy(QUrl url, std::chrono::milliseconds limit);

} // namespace quorvane

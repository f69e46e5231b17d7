// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QNetworkReply>

#include <system_error>

namespace quorvane {

/// Why no answer came, as Qt names it: the code's value is Qt's, its message the value's name. Nothing of the
/// request or the peer's words is in it. Beside Qt's own causes: `TimeoutError` when the whole exchange took
/// too long, `SslHandshakeFailedError` for a refused certificate, `OperationCanceledError` when the client
/// has gone.
[[nodiscard]] std::error_code transportError(QNetworkReply::NetworkError error);

} // namespace quorvane

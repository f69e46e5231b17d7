// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QStringList>

/// The certificate that a server on this machine must present: a file "quorvane-server.cer" in DER encoding,
/// which comes with that server.
namespace quorvane::PinnedCertificate {

/// The contents of the file in the first of `folders` that has one; empty when none has, or when it is no
/// plain file or too long or cannot be read. A first file that cannot be used hides those after it.
[[nodiscard]] QByteArray find(const QStringList &folders);

} // namespace quorvane::PinnedCertificate

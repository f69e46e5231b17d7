// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QList>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <QUrl>

#include <functional>

namespace quorvane {

/// Which certificates a server may present. A server on this machine, whose address is 127.0.0.1, has to
/// present one pinned certificate, byte for byte; who issued it, for which name and until when does not
/// matter. Every other server, "localhost" too, is left to the system's authorities.
class ServerTrust final
{
public:
    /// Gives the pinned certificate's DER encoding as it is now; empty when there is none.
    using PinnedCertificate = std::function<QByteArray()>;

    /// `authorities` are trusted beside the system's; for tests.
    explicit ServerTrust(PinnedCertificate pinnedCertificate, QList<QSslCertificate> authorities = {});

    /// Whether only the pinned certificate counts for requests to `url`.
    [[nodiscard]] static bool isPinned(const QUrl &url);

    [[nodiscard]] QSslConfiguration configuration(const QUrl &url) const;

    /// Whether a server's own certificate is the pinned one. Reads the pinned one anew each time.
    [[nodiscard]] bool isPinnedCertificate(const QSslCertificate &leaf) const;

private:
    PinnedCertificate m_pinnedCertificate;
    QList<QSslCertificate> m_authorities;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/ServerTrust.h"

using namespace Qt::StringLiterals;

namespace quorvane {

ServerTrust::ServerTrust(PinnedCertificate pinnedCertificate, QList<QSslCertificate> authorities)
    : m_pinnedCertificate(std::move(pinnedCertificate))
    , m_authorities(std::move(authorities))
{
}

bool ServerTrust::isPinned(const QUrl &url)
{
    return url.host() == "127.0.0.1"_L1;
}

QSslConfiguration ServerTrust::configuration(const QUrl &url) const
{
    QSslConfiguration configuration = QSslConfiguration::defaultConfiguration();
    configuration.setProtocol(QSsl::TlsV1_2OrLater);
    configuration.setPeerVerifyMode(QSslSocket::VerifyPeer);
    if (isPinned(url))
        configuration.setCaCertificates({});
    else if (!m_authorities.isEmpty()) // even adding none would have all of the system's loaded
        configuration.addCaCertificates(m_authorities);
    return configuration;
}

bool ServerTrust::isPinnedCertificate(const QSslCertificate &leaf) const
{
    return !leaf.isNull() && leaf.toDer() == m_pinnedCertificate();
}

} // namespace quorvane

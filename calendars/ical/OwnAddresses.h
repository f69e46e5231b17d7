// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSet>
#include <QString>
#include <QStringList>

#include <libical/ical.h>

namespace quorvane {

/// The mail addresses by which the user is known among the attendees of a meeting.
class OwnAddresses final
{
public:
    OwnAddresses() = default;
    /// With or without "mailto:", in any case; what is no address is left out.
    explicit OwnAddresses(const QStringList &addresses);

    void add(const QString &address);

    /// Whether the user has declined `event`: at least one of its attendees is the user, and every one that
    /// is has PARTSTAT=DECLINED (RFC 5545 3.2.12). Who was invited twice and declined once may still come.
    [[nodiscard]] bool haveDeclined(icalcomponent *event) const;

private:
    [[nodiscard]] bool isOwn(icalproperty *attendee) const;

    QSet<QString> m_addresses;
};

} // namespace quorvane

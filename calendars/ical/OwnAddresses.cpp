// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/OwnAddresses.h"

#include "calendars/ical/IcalText.h"

namespace quorvane {
namespace {

QString normalized(const QString &address)
{
    QString text = address.trimmed().toLower();
    if (text.startsWith(u"mailto:"))
        text = text.mid(7).trimmed();
    return text;
}

} // namespace

OwnAddresses::OwnAddresses(const QStringList &addresses)
{
    for (const QString &address : addresses)
        add(address);
}

void OwnAddresses::add(const QString &address)
{
    const QString text = normalized(address);
    if (text.contains(u'@'))
        m_addresses.insert(text);
}

bool OwnAddresses::haveDeclined(icalcomponent *event) const
{
    bool declined = false;
    for (auto *attendee = icalcomponent_get_first_property(event, ICAL_ATTENDEE_PROPERTY); attendee;
         attendee = icalcomponent_get_next_property(event, ICAL_ATTENDEE_PROPERTY)) {
        if (!isOwn(attendee))
            continue;
        icalparameter *answer = icalproperty_get_first_parameter(attendee, ICAL_PARTSTAT_PARAMETER);
        if (!answer || icalparameter_get_partstat(answer) != ICAL_PARTSTAT_DECLINED)
            return false;
        declined = true;
    }
    return declined;
}

bool OwnAddresses::isOwn(icalproperty *attendee) const
{
    if (m_addresses.contains(normalized(icalText(attendee))))
        return true;
    // The address of an attendee who is named by something else, e.g. a urn: (RFC 7986 6.2).
    icalparameter *email = icalproperty_get_first_parameter(attendee, ICAL_EMAIL_PARAMETER);
    return email && m_addresses.contains(normalized(QString::fromUtf8(icalparameter_get_email(email))));
}

} // namespace quorvane

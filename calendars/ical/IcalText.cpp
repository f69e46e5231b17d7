// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/IcalText.h"

namespace quorvane {

QString icalText(icalproperty *property)
{
    const icalvalue *value = icalproperty_get_value(property);
    if (!value)
        return {};
    const icalvalue_kind kind = icalvalue_isa(value);
    if (kind == ICAL_TEXT_VALUE)
        return QString::fromUtf8(icalvalue_get_text(value));
    if (kind == ICAL_X_VALUE)
        return QString::fromUtf8(icalvalue_get_x(value));
    if (kind == ICAL_URI_VALUE)
        return QString::fromUtf8(icalvalue_get_uri(value))
            .replace(QLatin1String("\\,"), QLatin1String(","))
            .replace(QLatin1String("\\;"), QLatin1String(";"));
    if (kind == ICAL_CALADDRESS_VALUE)
        return QString::fromUtf8(icalvalue_get_caladdress(value));
    return {};
}

std::optional<QString> icalText(icalcomponent *component, icalproperty_kind kind)
{
    icalproperty *property = icalcomponent_get_first_property(component, kind);
    const QString text = property ? icalText(property) : QString();
    if (text.trimmed().isEmpty())
        return std::nullopt;
    return text;
}

} // namespace quorvane

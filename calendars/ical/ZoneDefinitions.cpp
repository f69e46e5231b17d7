// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/ZoneDefinitions.h"

#include "calendars/ical/NativeComponent.h"
#include "calendars/ical/RecurrenceBudget.h"

namespace quorvane {

ICalTimezone *ZoneDefinitions::zone(const std::string &definition)
{
    const auto known = m_zones.find(definition);
    if (known != m_zones.end())
        return known->second.get();
    GlibPointer<ICalTimezone> zone;
    const GlibPointer<ICalComponent> component(i_cal_component_new_from_string(definition.c_str()));
    if (component && RecurrenceBudget::coversZone(native(component.get()))) {
        zone.reset(i_cal_timezone_new());
        if (!i_cal_timezone_set_component(zone.get(), component.get()))
            zone.reset();
    }
    return m_zones.emplace(definition, std::move(zone)).first->second.get();
}

void ZoneDefinitions::trim()
{
    if (m_zones.size() > most)
        m_zones.clear();
}

} // namespace quorvane

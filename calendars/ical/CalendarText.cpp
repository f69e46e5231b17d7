// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/CalendarText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>

namespace quorvane {
namespace {

// Sorted; X- properties are kept too.
constexpr std::array<std::string_view, 21> usedProperties{
    "ATTENDEE", "CONFERENCE", "DESCRIPTION", "DTEND",        "DTSTART",       "DURATION", "EXDATE",
    "EXRULE",   "LOCATION",   "ORGANIZER",   "RDATE",        "RECURRENCE-ID", "RRULE",    "SEQUENCE",
    "STATUS",   "SUMMARY",    "TZID",        "TZOFFSETFROM", "TZOFFSETTO",    "UID",      "URL"};

char upper(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

bool equals(std::string_view text, std::string_view upperCase)
{
    return std::equal(text.begin(), text.end(), upperCase.begin(), upperCase.end(),
                      [](char a, char b) { return upper(a) == b; });
}

std::string upperCased(std::string_view text)
{
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

bool startsWith(std::string_view text, std::string_view upperCase)
{
    return equals(text.substr(0, upperCase.size()), upperCase);
}

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

std::string unescaped(std::string_view text)
{
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\\' && i + 1 < text.size())
            ++i;
        result += text[i];
    }
    return result;
}

/// Splits a content line (RFC 5545 3.1) into name and value; parameters are passed over.
struct ContentLine
{
    std::string_view name;
    std::string_view value;

    explicit ContentLine(std::string_view line)
    {
        name = line.substr(0, line.find_first_of(":;"));
        bool quoted = false;
        for (std::size_t i = name.size(); i < line.size(); ++i) {
            if (line[i] == '"')
                quoted = !quoted;
            if (line[i] == ':' && !quoted) {
                value = trimmed(line.substr(i + 1));
                return;
            }
        }
    }
};

bool isUsed(std::string_view name)
{
    std::array<char, 16> buffer{};
    if (startsWith(name, "X-"))
        return true;
    if (name.size() > buffer.size())
        return false;
    std::transform(name.begin(), name.end(), buffer.begin(), upper);
    return std::binary_search(usedProperties.begin(), usedProperties.end(),
                              std::string_view(buffer.data(), name.size()));
}

std::optional<int> dayOf(std::string_view value)
{
    int day = 0;
    const std::string_view digits = value.substr(0, 8);
    const auto [end, error] = std::from_chars(digits.begin(), digits.end(), day);
    const std::chrono::year_month_day date(std::chrono::year(day / 10000),
                                           std::chrono::month(static_cast<unsigned>(day / 100 % 100)),
                                           std::chrono::day(static_cast<unsigned>(day % 100)));
    if (error != std::errc() || end - digits.begin() != 8 || !date.ok())
        return std::nullopt;
    return day;
}

class Parser final
{
public:
    CalendarText parse(std::string_view text)
    {
        if (text.starts_with("\xEF\xBB\xBF"))
            text.remove_prefix(3);
        while (!text.empty()) {
            const std::size_t end = text.find('\n');
            line(text.substr(0, end), end == std::string_view::npos ? text.size() : end + 1);
            text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        }
        abandon();
        return std::move(m_result);
    }

private:
    enum class Inside { calendar, event, timeZone };

    void line(std::string_view line, std::size_t size)
    {
        if (size > CalendarText::longestLine || line.find('\0') != std::string_view::npos) {
            m_isBroken = true;
            return;
        }
        if (startsWith(line, "BEGIN:"))
            begin(trimmed(line.substr(6)), line);
        else if (startsWith(line, "END:"))
            end(trimmed(line.substr(4)), line);
        else if (m_inside == Inside::calendar)
            header(line);
        else if (m_inside == Inside::timeZone)
            append(line);
        else if (m_open.size() == 1)
            eventLine(line);
    }

    void begin(std::string_view component, std::string_view line)
    {
        if (equals(component, "VCALENDAR")) {
            abandon();
            m_result.isCalendar = true;
        } else if (equals(component, "VEVENT") ||
                   (m_inside == Inside::calendar && equals(component, "VTIMEZONE"))) {
            abandon();
            m_inside = equals(component, "VEVENT") ? Inside::event : Inside::timeZone;
            m_open.push_back(upperCased(component));
            append(line);
        } else if (m_inside != Inside::calendar) {
            m_open.push_back(upperCased(component));
            if (m_inside == Inside::timeZone)
                append(line);
        }
    }

    void end(std::string_view component, std::string_view line)
    {
        if (equals(component, "VCALENDAR")) {
            abandon();
            return;
        }
        if (m_inside == Inside::calendar)
            return;
        if (m_inside == Inside::timeZone || m_open.size() == 1)
            append(line);
        // libical loses memory over the end of something that was not begun.
        m_isBroken = m_isBroken || !equals(component, m_open.back());
        m_open.pop_back();
        if (m_open.empty())
            finish();
    }

    void header(std::string_view line)
    {
        if (startsWith(line, "X-WR-CALNAME")) {
            m_result.name = unescaped(ContentLine(line).value);
            if (m_result.owner.empty() && m_result.name.find('@') != std::string::npos)
                m_result.owner = m_result.name;
        } else if (startsWith(line, "X-OWNER")) {
            m_result.owner = std::string(ContentLine(line).value);
        }
    }

    void eventLine(std::string_view line)
    {
        if (!line.empty() && (line.front() == ' ' || line.front() == '\t')) {
            if (m_keepsProperty)
                append(line);
            return;
        }
        const ContentLine content(line);
        m_keepsProperty = isUsed(content.name);
        if (!m_keepsProperty)
            return;
        append(line);
        if (equals(content.name, "DTSTART"))
            m_event.firstDay = dayOf(content.value);
        else if (equals(content.name, "DTEND"))
            m_event.lastDay = dayOf(content.value);
        else if (equals(content.name, "DURATION"))
            m_hasDuration = true;
        else if (equals(content.name, "RRULE") || equals(content.name, "RDATE") ||
                 equals(content.name, "RECURRENCE-ID"))
            m_repeats = true;
    }

    void append(std::string_view line)
    {
        m_event.text.append(line);
        m_event.text += '\n';
    }

    void finish()
    {
        if (m_isBroken) {
            abandon();
            return;
        }
        if (m_inside == Inside::timeZone) {
            m_result.timeZones.push_back(std::move(m_event.text));
        } else {
            if (!m_event.lastDay && !m_hasDuration)
                m_event.lastDay = m_event.firstDay;
            if (m_repeats)
                m_event.firstDay = m_event.lastDay = std::nullopt;
            m_result.events.push_back(std::move(m_event));
        }
        reset();
    }

    void abandon()
    {
        if (m_inside == Inside::event)
            ++m_result.brokenEvents;
        reset();
    }

    void reset()
    {
        m_inside = Inside::calendar;
        m_open.clear();
        m_event = {};
        m_keepsProperty = false;
        m_hasDuration = false;
        m_repeats = false;
        m_isBroken = false;
    }

    CalendarText m_result;
    Inside m_inside = Inside::calendar;
    /// Names of the components that have begun and not ended.
    std::vector<std::string> m_open;
    CalendarText::Event m_event;
    bool m_keepsProperty = false;
    bool m_hasDuration = false;
    bool m_repeats = false;
    bool m_isBroken = false;
};

} // namespace

CalendarText CalendarText::parse(std::string_view text)
{
    return Parser().parse(text);
}

} // namespace quorvane

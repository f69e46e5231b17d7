// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/TypedTime.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

enum class Half { morning, afternoon };

struct Parts
{
    QString lead;
    bool hasSeparator = false;
    QString tail;
    std::optional<Half> half;
};

int numberOf(const QString &digits)
{
    int number = 0;
    for (const QChar digit : digits)
        number = 10 * number + digit.digitValue();
    return number;
}

QString lettersOf(QString text)
{
    erase_if(text, [](QChar letter) { return !letter.isLetter(); });
    return text.toLower();
}

std::optional<Half> halfOf(const QString &letters, const ClockStyle &style)
{
    if (lettersOf(style.morning).startsWith(letters) || u"am"_s.startsWith(letters))
        return Half::morning;
    if (lettersOf(style.afternoon).startsWith(letters) || u"pm"_s.startsWith(letters))
        return Half::afternoon;
    return std::nullopt;
}

std::optional<Parts> partsOf(const QString &text, const ClockStyle &style)
{
    static const QRegularExpression form(
        u"^\\s*(\\d{1,4})(\\s*[hH]\\s*|[^\\p{L}\\d]+)?(\\d{1,2})?\\s*([\\p{L}\\s.]*)$"_s,
        QRegularExpression::UseUnicodePropertiesOption);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return std::nullopt;
    Parts parts{
        .lead = match.captured(1), .hasSeparator = !match.captured(2).isEmpty(), .tail = match.captured(3)};
    const QString letters = lettersOf(match.captured(4));
    if (!letters.isEmpty())
        parts.half = halfOf(letters, style);
    return letters.isEmpty() || parts.half ? std::optional(parts) : std::nullopt;
}

int inHalf(int hour, Half half)
{
    return hour % 12 + (half == Half::afternoon ? 12 : 0);
}

int wholeHour(int hour, std::optional<Half> half, QTime current, const ClockStyle &style)
{
    if (hour < 1 || hour > 12)
        return hour;
    if (half)
        return inHalf(hour, *half);
    if (style.hours == ClockStyle::Hours::twentyFour)
        return hour;
    return inHalf(hour, current.hour() < 12 ? Half::morning : Half::afternoon);
}

std::optional<TypedTime> checked(QTime time, bool isFinished)
{
    return time.isValid() ? std::optional(TypedTime{time, isFinished}) : std::nullopt;
}

bool saysWholeTime(const Parts &parts)
{
    return parts.lead.size() > 2 || !parts.tail.isEmpty();
}

std::optional<TypedTime> wholeTime(const Parts &parts, QTime current, const ClockStyle &style)
{
    if (parts.lead.size() > 2 && !parts.tail.isEmpty())
        return std::nullopt;
    const int lead = numberOf(parts.lead);
    const int hour = parts.tail.isEmpty() ? lead / 100 : lead;
    const int minute = parts.tail.isEmpty() ? lead % 100 : numberOf(parts.tail);
    return checked(QTime(wholeHour(hour, parts.half, current, style), minute), true);
}

// Whoever types a whole time types it also when the hour alone has already brought them here.
QString withoutSeparator(const QString &text)
{
    static const QRegularExpression separator(u"^[^\\p{L}\\d]+"_s,
                                              QRegularExpression::UseUnicodePropertiesOption);
    return QString(text).remove(separator);
}

} // namespace

std::optional<TypedTime> TypedTime::inHour(const QString &text, QTime current, const ClockStyle &style)
{
    const std::optional<Parts> parts = partsOf(text, style);
    if (!parts)
        return std::nullopt;
    if (saysWholeTime(*parts))
        return wholeTime(*parts, current, style);
    const int hour = numberOf(parts->lead);
    const int lastThatGoesOn = style.hours == ClockStyle::Hours::twelve ? 1 : 2;
    const bool isFinished =
        parts->lead.size() == 2 || parts->hasSeparator || parts->half || hour > lastThatGoesOn;
    return checked(QTime(wholeHour(hour, parts->half, current, style), current.minute()), isFinished);
}

std::optional<TypedTime> TypedTime::inMinute(const QString &text, QTime current, const ClockStyle &style)
{
    const std::optional<Parts> parts = partsOf(withoutSeparator(text), style);
    // More than two digits are two and a slip.
    if (!parts || (parts->lead.size() > 2 && parts->tail.isEmpty()))
        return std::nullopt;
    if (!parts->tail.isEmpty())
        return wholeTime(*parts, current, style);
    const int minute = numberOf(parts->lead);
    const int hour = parts->half ? inHalf(current.hour(), *parts->half) : current.hour();
    return checked(QTime(hour, minute), parts->lead.size() == 2 || parts->half || minute > 5);
}

} // namespace quorvane

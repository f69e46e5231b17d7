// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/ical/EventNotes.h"

#include "calendars/ical/IcalText.h"
#include "calendars/ical/LinkUnwrapper.h"
#include "core/HtmlText.h"

#include <QRegularExpression>
#include <QStringList>
#include <QUrl>

namespace quorvane {
namespace {

QString htmlTwin(icalcomponent *event)
{
    for (auto *property = icalcomponent_get_first_property(event, ICAL_X_PROPERTY); property;
         property = icalcomponent_get_next_property(event, ICAL_X_PROPERTY)) {
        const char *name = icalproperty_get_x_name(property);
        if (name && qstricmp(name, "X-ALT-DESC") == 0)
            return icalText(property);
    }
    icalproperty *description = icalcomponent_get_first_property(event, ICAL_DESCRIPTION_PROPERTY);
    icalparameter *alternative =
        description ? icalproperty_get_first_parameter(description, ICAL_ALTREP_PARAMETER) : nullptr;
    const QByteArray uri(alternative ? icalparameter_get_altrep(alternative) : "");
    if (!uri.startsWith("data:text/html,"))
        return {};
    return QUrl::fromPercentEncoding(uri.mid(uri.indexOf(',') + 1));
}

/// `notes` and the links of `twin` that it lacks.
QString withLinksOf(const QString &twin, QString notes)
{
    static const QRegularExpression link(QStringLiteral(R"((?:https|zoommtg|msteams)://[^\s<>"]+)"),
                                         QRegularExpression::CaseInsensitiveOption);
    constexpr int maximum = 200;
    QRegularExpressionMatchIterator matches = link.globalMatch(twin);
    for (int count = 0; matches.hasNext() && count < maximum; ++count) {
        const QString found = matches.next().captured();
        if (!notes.contains(found))
            notes += u'\n' + found;
    }
    return notes;
}

} // namespace

QString eventNotes(icalcomponent *event)
{
    QString notes = icalText(event, ICAL_DESCRIPTION_PROPERTY).value_or(QString());
    if (HtmlText::isHtml(notes))
        notes = HtmlText::plainText(notes, HtmlText::Purpose::links);
    notes = LinkUnwrapper::unwrapped(notes);
    QString twin = htmlTwin(event);
    if (twin.isEmpty())
        return notes;
    twin = LinkUnwrapper::unwrapped(HtmlText::plainText(twin, HtmlText::Purpose::links));
    return notes.trimmed().isEmpty() ? twin : withLinksOf(twin, notes);
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the calendars page with sample accounts into a PNG, without any display:
//   QT_QPA_PLATFORM=offscreen render_calendars --light --size 884x780 --trouble out.png
// --many has 200 calendars, --long has long names, --empty has none.

#include "tests/ui/calendars/CalendarsFixture.h"

#include <QCommandLineParser>
#include <QElapsedTimer>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

PreviewContent sample()
{
    using State = SourceHealth::State;
    const auto calendar = [](const QString &name, const QString &account) {
        return CalendarOption{.id = name, .name = name, .account = account};
    };
    PreviewContent content;
    content.status = u"8 meetings scheduled for alerts"_s;
    content.calendars = {
        calendar(u"Ada Moreau"_s, u"Google"_s),      calendar(u"Design team"_s, u"Google"_s),
        calendar(u"Hiring"_s, u"Google"_s),          calendar(u"Holidays in France"_s, u"Google"_s),
        calendar(u"Platform"_s, u"Microsoft 365"_s), calendar(u"On call"_s, u"Microsoft 365"_s),
        calendar(u"Family"_s, u"calendars"_s)};
    content.settings.excludedCalendars = {u"Holidays in France"_s};
    content.sources = {CalendarsFixture::account(u"Google"_s, State::upToDate, 60),
                       CalendarsFixture::account(u"Microsoft 365"_s, State::upToDate, 120),
                       CalendarsFixture::account(u"calendars"_s, State::upToDate, 0)};
    content.sources.back().folder = u"/home/ada/calendars"_s;
    return content;
}

void addTrouble(PreviewContent &content)
{
    content.sources[1].state = SourceHealth::State::failing;
    content.status = u"Evolution did not answer; its saved meetings are retained. "_s + content.status;
    content.fantasticalStatus =
        u"Fantastical’s calendar cache cannot be opened. Check Quorvane’s access in macOS Privacy & "
        "Security, then refresh."_s;
    content.sources.push_back({.account = u"Fantastical"_s,
                               .state = SourceHealth::State::failing,
                               .lastRead = content.sources.front().lastRead,
                               .isFantastical = true});
    content.fantasticalConnected = true;
    content.fantasticalCalendars = {{.id = u"f"_s, .name = u"Climbing"_s, .account = u"iCloud"_s}};
}

} // namespace

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({QCommandLineOption(u"light"_s), QCommandLineOption(u"trouble"_s),
                       QCommandLineOption(u"empty"_s), QCommandLineOption(u"long"_s),
                       QCommandLineOption(u"many"_s),
                       QCommandLineOption(u"size"_s, QString(), u"WxH"_s, u"884x780"_s),
                       QCommandLineOption(u"focus"_s, QString(), u"name"_s)});
    parser.addPositionalArgument(u"picture"_s, u"The PNG to write"_s);
    parser.process(application);

    PreviewContent content = sample();
    if (parser.isSet(u"trouble"_s))
        addTrouble(content);
    if (parser.isSet(u"empty"_s))
        content = {.calendarAccess = false,
                   .status =
                       u"Calendar access is off. Allow Quorvane in System Settings > Privacy & Security > "
                       "Calendars, then refresh."_s};
    if (parser.isSet(u"long"_s)) {
        content.calendars.front().name = u"Quarterly planning of the platform and data teams "_s.repeated(4);
        content.sources.front().account = u"ada.moreau-with-a-long-name@northwind.example "_s.repeated(3);
        for (CalendarOption &calendar : content.calendars) {
            if (calendar.account == u"Google"_s)
                calendar.account = content.sources.front().account;
        }
    }
    for (int number = 0; parser.isSet(u"many"_s) && number < 200; ++number)
        content.calendars.push_back(
            {.id = QString::number(number), .name = u"Calendar %1"_s.arg(number), .account = u"Google"_s});

    CalendarsFixture page(parser.isSet(u"light"_s) ? Switch::off : Switch::on);
    page.start(AppModel::Mode::preview);
    page.model->showPreview(content);
    const QStringList sides = parser.value(u"size"_s).split(u'x');
    QElapsedTimer watch;
    watch.start();
    if (!page.open({sides.value(0).toInt(), sides.value(1).toInt()}))
        return 1;
    qInfo("shown after %lld ms", watch.elapsed());
    if (QQuickItem *item = parser.isSet(u"focus"_s) ? page.item(parser.value(u"focus"_s)) : nullptr)
        item->forceActiveFocus(Qt::TabFocusReason);
    QTest::qWait(300);
    return page.picture.image().save(parser.positionalArguments().value(0)) ? 0 : 1;
}

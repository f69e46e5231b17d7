// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the sheet into a PNG, without any display:
//   QT_QPA_PLATFORM=offscreen render_sheet --light --size 1100x780 --title Coffee --link zoom --focus cancel
//   out.png
// With --pick the picker is open. The locale is that of the environment.

#include "tests/ui/sheet/SheetFixture.h"

#include <QCommandLineParser>
#include <QGuiApplication>

using namespace Qt::StringLiterals;
using namespace quorvane;

int main(int argc, char *argv[])
{
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    const auto valued = [](const QString &name, const QString &fallback) {
        return QCommandLineOption(name, QString(), u"value"_s, fallback);
    };
    parser.addOptions({QCommandLineOption(u"light"_s), QCommandLineOption(u"pick"_s),
                       valued(u"size"_s, u"1100x780"_s), valued(u"title"_s, {}), valued(u"link"_s, {}),
                       valued(u"focus"_s, {}), valued(u"start"_s, u"2026-07-14 14:15"_s),
                       valued(u"now"_s, u"2026-07-14 09:48"_s)});
    parser.addPositionalArgument(u"picture"_s, u"The PNG to write"_s);
    parser.process(application);
    const auto instant = [&parser](const QString &option) {
        return static_cast<double>(
            QDateTime::fromString(parser.value(option), u"yyyy-MM-dd HH:mm"_s).toSecsSinceEpoch());
    };

    SheetFixture sheet(parser.isSet(u"light"_s) ? Switch::off : Switch::on);
    sheet.clock.time = instant(u"now"_s);
    sheet.start(AppModel::Mode::preview);
    const QStringList sides = parser.value(u"size"_s).split(u'x');
    if (!sheet.open({sides.value(0).toInt(), sides.value(1).toInt()}))
        return 1;
    sheet.form->setTitle(parser.value(u"title"_s));
    sheet.form->setLink(parser.value(u"link"_s));
    sheet.form->leaveLink();
    sheet.form->setStart(instant(u"start"_s));
    if (parser.isSet(u"pick"_s))
        sheet.clickOn("starts");
    const QByteArray focus = parser.value(u"focus"_s).toLatin1();
    if (QQuickItem *item = focus.isEmpty() ? nullptr : sheet.picture.item(focus.constData()))
        item->forceActiveFocus(Qt::TabFocusReason);
    QTest::qWait(600);
    return sheet.picture.image().save(parser.positionalArguments().value(0)) ? 0 : 1;
}

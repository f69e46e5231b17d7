// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Draws the board of all controls in all states, or another file of QML, into a PNG, without any display:
//   QT_QPA_PLATFORM=offscreen render_states --light --size 1376x700 out.png [FILE.qml]
// With --seconds SECONDS it waits that long first, for what moves.

#include "tests/support/ViewPicture.h"

#include <QCommandLineParser>
#include <QGuiApplication>

using namespace Qt::StringLiterals;

int main(int argc, char *argv[])
{
    using namespace quorvane;
    QGuiApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addHelpOption();
    parser.addOptions({QCommandLineOption(u"light"_s),
                       QCommandLineOption(u"size"_s, QString(), u"WxH"_s, u"1376x700"_s),
                       QCommandLineOption(u"seconds"_s, QString(), u"seconds"_s, u"0.6"_s)});
    parser.addPositionalArgument(u"picture"_s, u"The PNG to write"_s);
    parser.process(application);
    const QStringList arguments = parser.positionalArguments();
    const QStringList sides = parser.value(u"size"_s).split(u'x');
    ViewPicture picture(parser.isSet(u"light"_s) ? Switch::off : Switch::on);
    const QString file = arguments.value(1, QStringLiteral(QUORVANE_STATES_BOARD));
    if (!picture.show(QUrl::fromLocalFile(file), {sides.value(0).toInt(), sides.value(1).toInt()}))
        return 1;
    QTest::qWait(static_cast<int>(1000 * parser.value(u"seconds"_s).toDouble()));
    return picture.image().save(arguments.value(0)) ? 0 : 1;
}

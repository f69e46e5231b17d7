// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/records/FantasticalReadError.h"
#include "calendars/records/FantasticalSnapshot.h"
#include "core/StrictJson.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class FantasticalSnapshotTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aSnapshotIsReadAsItIsWritten();
    void aSnapshotThatIsNotWholeIsRefused_data();
    void aSnapshotThatIsNotWholeIsRefused();
    void theReadersWordsStandForErrors();
    void coloursAreTakenInEverySpelling_data();
    void coloursAreTakenInEverySpelling();
};

void FantasticalSnapshotTest::aSnapshotIsReadAsItIsWritten()
{
    const QByteArray text = R"({"events":[{"id":"a","title":"Plan “B”","start":1.5,"end":3,"calendar":"Work",
        "joinURL":null,"source":"elsewhere","cancelled":false,"allDay":true}],
        "calendars":[{"id":"c","name":"Work","account":"Mail"}],
        "skipped":2,"checkedAt":1800000000.25,"cacheModifiedAt":0,"more":[]})";
    const auto snapshot = FantasticalSnapshot::fromJson(text);
    QVERIFY(snapshot);
    const FantasticalSnapshot expected{
        .events = {{.id = u"a"_s,
                    .title = u"Plan “B”"_s,
                    .start = 1.5,
                    .end = 3,
                    .calendar = u"Work"_s,
                    .source = u"elsewhere"_s,
                    .allDay = true}},
        .calendars = {{u"c"_s, u"Work"_s, u"Mail"_s}},
        .skipped = 2,
        .checkedAt = 1800000000.25,
        .cacheModifiedAt = 0,
    };
    QVERIFY(*snapshot == expected);
    QVERIFY(*FantasticalSnapshot::fromJson(expected.toJson()) == expected);
    QVERIFY(*FantasticalSnapshot::fromJson(FantasticalSnapshot{}.toJson()) == FantasticalSnapshot{});
}

void FantasticalSnapshotTest::aSnapshotThatIsNotWholeIsRefused_data()
{
    QTest::addColumn<QByteArray>("from");
    QTest::addColumn<QByteArray>("to");
    QTest::addColumn<JsonError>("error");
    const auto row = [](const char *name, const char *from, const char *to, JsonError error) {
        QTest::newRow(name) << QByteArray(from) << QByteArray(to) << error;
    };
    row("no age of the cache", R"(,"cacheModifiedAt":4)", "", JsonError::missingKey);
    row("no events", R"("events")", R"("other")", JsonError::missingKey);
    row("events are no list", "[{\"id\":\"a\"", "{\"id\":\"a\"", JsonError::notJson);
    row("an event without a title", R"("title":"t",)", "", JsonError::missingKey);
    row("an event with a title that is a number", R"("title":"t")", R"("title":1)", JsonError::wrongType);
    row("an event that is none", R"("events":[)", R"("events":[7,)", JsonError::wrongType);
    row("a calendar without an account", R"(,"account":"m")", "", JsonError::missingKey);
    row("half a record skipped", R"("skipped":1)", R"("skipped":1.5)", JsonError::wrongType);
    row("more skipped than can be counted", R"("skipped":1)", R"("skipped":1e30)", JsonError::wrongType);
    row("skipped in words", R"("skipped":1)", R"("skipped":"1")", JsonError::wrongType);
    row("calendars that are null", R"([{"id":"c","name":"n","account":"m"}])", "null", JsonError::wrongType);
    row("cut off", R"("cacheModifiedAt":4})", "", JsonError::notJson);
    row("text that is not UTF-8", "\"t\"", "\"\xff\"", JsonError::notJson);
}

void FantasticalSnapshotTest::aSnapshotThatIsNotWholeIsRefused()
{
    QFETCH(QByteArray, from);
    QFETCH(QByteArray, to);
    QFETCH(JsonError, error);
    QByteArray text =
        R"({"events":[{"id":"a","title":"t","start":1,"end":2,"calendar":"n","source":"mac",)"
        R"("cancelled":false,"allDay":false}],"calendars":[{"id":"c","name":"n","account":"m"}],)"
        R"("skipped":1,"checkedAt":3,"cacheModifiedAt":4})";
    QVERIFY(FantasticalSnapshot::fromJson(text));
    QVERIFY(text.contains(from));
    const auto refused = FantasticalSnapshot::fromJson(text.replace(from, to));
    QVERIFY(!refused);
    QCOMPARE(refused.error(), make_error_code(error));
}

void FantasticalSnapshotTest::theReadersWordsStandForErrors()
{
    QVERIFY(errorOfToken("access_denied") == FantasticalReadError::accessDenied);
    QVERIFY(errorOfToken("database_unavailable") == FantasticalReadError::databaseUnavailable);
    QVERIFY(errorOfToken("unsupported_format") == FantasticalReadError::unsupportedFormat);
    for (const char *other : {"", "access_denied ", "Access_denied", "helper_failed"})
        QVERIFY(!errorOfToken(other));
}

void FantasticalSnapshotTest::coloursAreTakenInEverySpelling_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("color");
    QTest::newRow("plain") << u"#62a0ea"_s << u"#62a0ea"_s;
    QTest::newRow("capitals and blanks") << u" #62A0EA\n"_s << u"#62a0ea"_s;
    QTest::newRow("with an opacity") << u"#62a0eaFF"_s << u"#62a0ea"_s;
    QTest::newRow("short") << u"#6ae"_s << u"#66aaee"_s;
    QTest::newRow("16 bits a channel") << u"#6212a034ea56"_s << u"#62a0ea"_s;
    QTest::newRow("a name") << u"tomato"_s << QString();
    QTest::newRow("no hexadecimal") << u"#62a0eg"_s << QString();
    QTest::newRow("without the sign") << u"62a0ea0"_s << QString();
    QTest::newRow("empty") << QString() << QString();
}

void FantasticalSnapshotTest::coloursAreTakenInEverySpelling()
{
    QFETCH(QString, text);
    QFETCH(QString, color);
    const QJsonObject object{
        {"id"_L1, u"c"_s}, {"name"_L1, u"n"_s}, {"account"_L1, u"a"_s}, {"color"_L1, text}};
    const auto option = CalendarOption::fromJson(object);
    QVERIFY(option);
    QCOMPARE(option->color.value_or(QString()), color);
    QVERIFY(*CalendarOption::fromJson(option->toJson()) == *option);
}

QTEST_APPLESS_MAIN(FantasticalSnapshotTest)
#include "fantastical_snapshot_test.moc"

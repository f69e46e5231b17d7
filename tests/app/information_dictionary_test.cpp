// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/InformationDictionary.h"

#include "app/ProgramResources.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class InformationDictionaryTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatIsNoTextIsAbsent_data();
    void whatIsNoTextIsAbsent();
    void theBuildSaysWhatItIs();
};

void InformationDictionaryTest::whatIsNoTextIsAbsent_data()
{
    QTest::addColumn<QByteArray>("file");
    QTest::addColumn<InformationDictionary>("read");
    const InformationDictionary nothing;
    QTest::newRow("all of it")
        << R"({"CFBundleShortVersionString":"1.2","CFBundleVersion":"34","SUFeedURL":"https://a/ä","SUPublicEDKey":"k"})"_ba
        << InformationDictionary{u"1.2"_s, u"34"_s, u"https://a/ä"_s, u"k"_s};
    QTest::newRow("no feed") << R"({"CFBundleShortVersionString":"1.2","CFBundleVersion":"34"})"_ba
                             << InformationDictionary{u"1.2"_s, u"34"_s, {}, {}};
    QTest::newRow("an empty text is a text")
        << R"({"CFBundleVersion":""})"_ba << InformationDictionary{{}, u""_s, {}, {}};
    QTest::newRow("other types")
        << R"({"CFBundleShortVersionString":1.2,"CFBundleVersion":34,"SUFeedURL":null,"SUPublicEDKey":["k"]})"_ba
        << nothing;
    QTest::newRow("cut off") << R"({"CFBundleShortVersionString":"1.2")"_ba << nothing;
    QTest::newRow("a list") << R"(["1.2"])"_ba << nothing;
    QTest::newRow("empty") << ""_ba << nothing;
    QTest::newRow("endless") << R"({"CFBundleVersion":"34"})"_ba + QByteArray(100'000, ' ') << nothing;
    QTest::newRow("no file") << QByteArray() << nothing;
}

void InformationDictionaryTest::whatIsNoTextIsAbsent()
{
    QFETCH(QByteArray, file);
    QFETCH(InformationDictionary, read);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"info.json"_s);
    if (!file.isNull()) {
        QFile written(path);
        QVERIFY(written.open(QIODevice::WriteOnly));
        QCOMPARE(written.write(file), file.size());
    }
    QVERIFY(InformationDictionary::read(path) == read);
}

void InformationDictionaryTest::theBuildSaysWhatItIs()
{
    const QString path = ProgramResources::informationDictionary(QStringLiteral(QUORVANE_PROGRAM_FOLDER));
    const InformationDictionary built = InformationDictionary::read(path);
    QCOMPARE(built.shortVersion, QStringLiteral(QUORVANE_VERSION));
    QVERIFY(built.buildNumber.has_value());
    bool isNumber = false;
    built.buildNumber->toUInt(&isNumber);
    QVERIFY(isNumber);
    QCOMPARE(built.feedAddress.value_or(QString()), QStringLiteral(QUORVANE_FEED_URL));
}

QTEST_APPLESS_MAIN(InformationDictionaryTest)
#include "information_dictionary_test.moc"

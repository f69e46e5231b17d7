// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "async/OffThread.h"
#include "calendars/FantasticalAccess.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <semaphore>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

/// A person at a folder dialog.
class Person final : public FolderChooser
{
public:
    Result<std::optional<QString>> answer;
    FolderRequest asked;
    int timesAsked = 0;
    /// Finished when the person answers.
    QPromise<void> thinking;

    QCoro::Task<Result<std::optional<QString>>> choose(FolderRequest request) override
    {
        asked = request;
        ++timesAsked;
        const QFuture<void> thought = thinking.future();
        co_await thought;
        const Result<std::optional<QString>> given = answer;
        co_return given;
    }
};

class FantasticalAccessTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void thePersonIsAskedForTheDatabaseFolder();
    void onlyAFolderWithTheCacheIsStored_data();
    void onlyAFolderWithTheCacheIsStored();
    void oneQuestionAtATime();
    void anAnswerAfterTheEndChangesNothing();
    void aHangingJobIsNotWaitedFor();

private:
    void make(const QString &name) const
    {
        QVERIFY(QDir(home->path()).mkpath(QFileInfo(name).path()));
        QFile file(home->filePath(name));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }

    std::unique_ptr<QTemporaryDir> home;
    std::unique_ptr<Person> person;
    QStringList stored;
    std::unique_ptr<FantasticalAccess> access;
};

void FantasticalAccessTest::init()
{
    home = std::make_unique<QTemporaryDir>();
    person = std::make_unique<Person>();
    person->thinking.start();
    stored.clear();
    const auto store = [this](const QString &folder) -> Result<void> {
        if (folder.endsWith(u"unstorable"_s))
            return Failure(std::make_error_code(std::errc::io_error));
        stored.append(folder);
        return {};
    };
    access = std::make_unique<FantasticalAccess>(home->path(), *person, store);
}

void FantasticalAccessTest::thePersonIsAskedForTheDatabaseFolder()
{
    person->thinking.finish();
    QVERIFY(!QCoro::waitFor(access->chooseFolder()));
    QCOMPARE(person->asked.title, u"Connect Fantastical"_s);
    QCOMPARE(person->asked.message, u"Choose Fantastical’s Database folder. Quorvane reads calendar events "
                                    "here and never changes Fantastical’s files."_s);
    QCOMPARE(person->asked.confirmText, u"Connect folder"_s);
    const QString start = person->asked.startFolder;
    QVERIFY(start.startsWith(home->path() + u"/Library/Group Containers/"_s));
    QVERIFY(start.endsWith(u"/Database"_s));
    QCOMPARE(access->defaultDirectory(), start);
    QVERIFY(!QCoro::waitFor(access->isCacheExpected()));
    make(QDir(home->path()).relativeFilePath(start) + u"/Fantastical-8.fcdata"_s);
    QVERIFY(QCoro::waitFor(access->isCacheExpected()));
}

void FantasticalAccessTest::onlyAFolderWithTheCacheIsStored_data()
{
    QTest::addColumn<QString>("chosen");
    QTest::addColumn<bool>("connected");
    QTest::newRow("holds the cache") << u"right"_s << true;
    QTest::newRow("name beyond ASCII") << u"Büro, 50 %"_s << true;
    QTest::newRow("cannot be stored") << u"unstorable"_s << false;
    QTest::newRow("holds another file") << u"other"_s << false;
    QTest::newRow("the folder above") << u"."_s << false;
    QTest::newRow("a folder of that name in it") << u"nested"_s << false;
    QTest::newRow("is gone") << u"gone"_s << false;
    QTest::newRow("the cache itself") << u"right/Fantastical-8.fcdata"_s << false;
    QTest::newRow("cancelled") << QString() << false;
}

void FantasticalAccessTest::onlyAFolderWithTheCacheIsStored()
{
    QFETCH(QString, chosen);
    QFETCH(bool, connected);
    for (const QString &file : {u"right/Fantastical-8.fcdata"_s, u"Büro, 50 %/Fantastical-8.fcdata"_s,
                                u"unstorable/Fantastical-8.fcdata"_s, u"other/Fantastical-9.fcdata"_s,
                                u"nested/Fantastical-8.fcdata/file"_s})
        make(file);
    const QString path = home->filePath(chosen);
    if (!chosen.isEmpty())
        person->answer = path;
    person->thinking.finish();
    QCOMPARE(QCoro::waitFor(access->chooseFolder()), connected);
    QCOMPARE(stored, connected ? QStringList{path} : QStringList());
}

void FantasticalAccessTest::oneQuestionAtATime()
{
    person->answer = FolderChooser::notSupported();
    auto first = access->chooseFolder();
    QVERIFY(!QCoro::waitFor(access->chooseFolder()));
    QCOMPARE(person->timesAsked, 1);
    person->thinking.finish();
    QVERIFY(!QCoro::waitFor(std::move(first)));
    QVERIFY(!QCoro::waitFor(access->chooseFolder()));
    QCOMPARE(person->timesAsked, 2);
}

void FantasticalAccessTest::anAnswerAfterTheEndChangesNothing()
{
    make(u"right/Fantastical-8.fcdata"_s);
    person->answer = home->filePath(u"right"_s);
    auto choosing = access->chooseFolder();
    access.reset();
    person->thinking.finish();
    QVERIFY(!QCoro::waitFor(std::move(choosing)));
    QCOMPARE(stored, QStringList());
}

void FantasticalAccessTest::aHangingJobIsNotWaitedFor()
{
    const auto hanging = std::make_shared<std::binary_semaphore>(0);
    const std::function<int()> job = [hanging] {
        hanging->acquire();
        return 1;
    };
    QVERIFY(!QCoro::waitFor(offThread(job, 20ms)).has_value());
    hanging->release();
    QTest::qWait(0);
    const std::function<int()> quick = [] { return 2; };
    QCOMPARE(QCoro::waitFor(offThread(quick, 30s)), std::optional(2));
}

QTEST_GUILESS_MAIN(FantasticalAccessTest)

#include "fantastical_access_test.moc"

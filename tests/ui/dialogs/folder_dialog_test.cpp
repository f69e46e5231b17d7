// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dialogs/QuickFolderChooser.h"

#include <QCoroTask>
#include <QDir>
#include <QGuiApplication>
#include <QTemporaryDir>
#include <QTest>
#include <QWindow>

using namespace Qt::StringLiterals;
using namespace quorvane;

class FolderDialogTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void theKeyboardLeadsToAFolder_data();
    void theKeyboardLeadsToAFolder();
    void onlyWhatIsThereIsTaken();
    void itClosesWithoutAFolder();

private:
    using Answer = Result<std::optional<QString>>;

    QCoro::Task<Answer> open(const QString &start)
    {
        const FolderRequest request{.title = u"Title"_s,
                                    .message = u"Message"_s,
                                    .confirmText = u"Take it"_s,
                                    .startFolder = QDir::cleanPath(home.filePath(start))};
        return chooser.choose(request);
    }
    static QWindow *dialog() { return QGuiApplication::topLevelWindows().value(0); }
    /// The folder that would be taken, below the home folder.
    QString shown() const
    {
        const QString path = dialog() ? dialog()->property("pointedAt").toString() : QString();
        return path.isEmpty() ? path : QDir(home.path()).relativeFilePath(path);
    }

    QTemporaryDir home;
    QuickFolderChooser chooser;
};

void FolderDialogTest::init()
{
    for (const QString &name : {u"b/Database"_s, u"C"_s, u"a"_s, u".hidden"_s})
        QVERIFY(QDir(home.path()).mkpath(name));
}

void FolderDialogTest::theKeyboardLeadsToAFolder_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("first");
    QTest::addColumn<QList<Qt::Key>>("keys");
    QTest::addColumn<QString>("last");
    const auto row = [](const char *name, const QString &start, const QString &first,
                        const QList<Qt::Key> &keys,
                        const QString &last) { QTest::newRow(name) << start << first << keys << last; };
    row("one without folders in it", u"b/Database"_s, u"b/Database"_s, {}, u"b/Database"_s);
    row("above one that is not there", u"x/y"_s, u"."_s, {}, u"."_s);
    row("pointed at", u"."_s, u"."_s, {Qt::Key_Down, Qt::Key_Down}, u"b"_s);
    row("in order, hidden ones left out", u"."_s, u"."_s, {Qt::Key_Down, Qt::Key_Down, Qt::Key_Down}, u"C"_s);
    row("gone into", u"b"_s, u"b"_s, {Qt::Key_Down, Qt::Key_Return}, u"b/Database"_s);
    row("left", u"b/Database"_s, u"b/Database"_s, {Qt::Key_Backspace}, u"b"_s);
}

void FolderDialogTest::theKeyboardLeadsToAFolder()
{
    QFETCH(QString, start);
    QFETCH(QString, first);
    QFETCH(QList<Qt::Key>, keys);
    QFETCH(QString, last);
    auto choosing = open(start);
    QTRY_COMPARE(shown(), first);
    QVERIFY(QTest::qWaitForWindowActive(dialog()));
    for (const Qt::Key key : keys)
        QTest::keyClick(dialog(), key);
    QTRY_COMPARE(shown(), last);
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
        QTest::keyClick(dialog(), key);
    QCOMPARE(QCoro::waitFor(std::move(choosing)).value(), QDir::cleanPath(home.filePath(last)));
    QVERIFY(!dialog());
}

void FolderDialogTest::onlyWhatIsThereIsTaken()
{
    auto choosing = open(u"."_s);
    QTRY_COMPARE(shown(), u"."_s);
    QVERIFY(QTest::qWaitForWindowActive(dialog()));
    QTest::keyClick(dialog(), Qt::Key_Backtab);
    for (const char letter : {'/', 'n', 'o'})
        QTest::keyClick(dialog(), letter);
    const auto note = [] { return dialog()->property("browser").value<QObject *>()->property("note"); };
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return})
        QTest::keyClick(dialog(), key);
    QTRY_COMPARE(note(), u"There is no such folder."_s);
    QTest::keyClick(dialog(), Qt::Key_Return);
    QCOMPARE(QCoro::waitFor(std::move(choosing)).value(), home.path());
}

void FolderDialogTest::itClosesWithoutAFolder()
{
    using Way = std::function<void()>;
    for (const Way &close :
         {Way([] { QTest::keyClick(dialog(), Qt::Key_Escape); }), Way([] { dialog()->close(); })}) {
        auto choosing = open(u"."_s);
        QTRY_COMPARE(shown(), u"."_s);
        QVERIFY(QTest::qWaitForWindowActive(dialog()));
        close();
        QCOMPARE(QCoro::waitFor(std::move(choosing)).value(), std::optional<QString>());
    }
}

QTEST_MAIN(FolderDialogTest)

#include "folder_dialog_test.moc"

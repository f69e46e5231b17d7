// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FullDisk.h"
#include "tests/support/UpdateFixture.h"
#include "updates/UpdateError.h"
#include "updates/linux/ArchiveSignature.h"
#include "updates/linux/PendingVersion.h"
#include "updates/linux/VersionTrial.h"

#include <QTest>

#include <sys/mount.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace quorvane;
using namespace std::chrono_literals;

class VersionedInstallerTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void anArchiveBecomesTheCurrentVersion();
    void theSelfTestSeesNothingOfThePerson();
    void whatIsWrongChangesNothing_data();
    void whatIsWrongChangesNothing();
    void aFullDiskChangesNothing();
    void aDiskThatIsTooSmallIsToldBeforeTheDownload();
    void aFolderThatCannotBeWrittenIsLeftAlone();
    void oneCopyUpdatesAtATime();
    void whatIsNotPreparedIsReplaced();
    void aVersionIsNotPutInPlaceOverANewerOne();
    void aVersionOnTrialIsNotReplaced();
    void theNextStartPutsInPlaceWhatWaitsForIt();
    void whatDoesNotFitIsForgotten_data();
    void whatDoesNotFitIsForgotten();
    void anotherDownloadIsThrownAway();
    void cleaningKeepsWhatIsNeeded_data();
    void cleaningKeepsWhatIsNeeded();
    void onlyAWholeKeyIsAKey_data();
    void onlyAWholeKeyIsAKey();

private:
    [[nodiscard]] UpdateItem item(const QByteArray &archive, const QString &version = u"812"_s) const
    {
        return itemFor(archive, version, f->key);
    }
    [[nodiscard]] QStringList namesIn(const QString &folder) const
    {
        return QDir(f->tree.path(folder)).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
    }
    /// But for the folder that only updates use.
    [[nodiscard]] std::map<QString, QByteArray> installation() const
    {
        auto content = f->tree.content();
        std::erase_if(content, [](const auto &entry) { return entry.first.contains(u"/.updates"); });
        return content;
    }

    std::unique_ptr<UpdateFixture> f;
};

void VersionedInstallerTest::init()
{
    f = std::make_unique<UpdateFixture>();
}

void VersionedInstallerTest::anArchiveBecomesTheCurrentVersion()
{
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    const UpdateItem update = item(archive);
    {
        VersionedInstaller installer(f->setup());
        QVERIFY(installer.check().has_value());
        QVERIFY(!installer.isPrepared(update));
        QVERIFY(UpdateFixture::prepared(installer, update, archive).has_value());
        QCOMPARE(namesIn(u".updates"_s), QStringList(u"lock"_s));
        QCOMPARE(f->tree.seenBy(u"811"_s).currentVersion(), u"811"_s);
    }
    VersionedInstaller later(f->setup());
    QVERIFY(later.isPrepared(update));
    QVERIFY(!later.isPrepared(item(archive + '\0'))); // another archive of that number
    QVERIFY(later.activate(update, {.pausedUntil = 5, .window = Handover::Window::open}).has_value());
    QCOMPARE(f->tree.seenBy(u"812"_s).currentVersion(), u"812"_s);
    VersionTrial trial = VersionTrial::begin(f->tree.seenBy(u"812"_s));
    QCOMPARE(trial.outcome(), VersionTrial::Outcome::onTrial);
    QCOMPARE(trial.handover(0), Handover({5.0, Handover::Window::open}));
    QVERIFY(!later.hasFailed(update));
}

void VersionedInstallerTest::theSelfTestSeesNothingOfThePerson()
{
    const QByteArray program =
        "#!/bin/sh\n"
        "[ \"$*\" = --self-test ] && [ -d \"$HOME\" ] && [ -z \"$(ls \"$HOME\")\" ] &&\n"
        "[ \"$QT_QPA_PLATFORM\" = offscreen ] && [ -z \"$DISPLAY$WAYLAND_DISPLAY\" ]\n";
    const QByteArray archive = UpdateFixture::archive(u"812"_s, u"812"_s, program);
    qputenv("DISPLAY", ":77");
    VersionedInstaller installer(f->setup());
    const Result<void> done = UpdateFixture::prepared(installer, item(archive), archive);
    qunsetenv("DISPLAY");
    QVERIFY(done.has_value());
}

void VersionedInstallerTest::whatIsWrongChangesNothing_data()
{
    QTest::addColumn<QByteArray>("announced");
    QTest::addColumn<QByteArray>("arrived");
    QTest::addColumn<UpdateError>("error");
    const auto row = [](const char *name, const QByteArray &both, UpdateError error) {
        QTest::newRow(name) << both << both << error;
    };
    const QByteArray good = UpdateFixture::archive(u"812"_s);
    const QByteArray script = InstalledTree::script(u"812"_s);
    QByteArray changed = good;
    changed[good.size() / 2] = static_cast<char>(~changed[good.size() / 2]);
    QTest::newRow("one byte differs") << good << changed << UpdateError::signatureInvalid;
    QTest::newRow("cut off") << good << good.chopped(1) << UpdateError::wrongLength;
    QTest::newRow("too long") << good << good + '\0' << UpdateError::wrongLength;
    QTest::newRow("empty") << good << QByteArray() << UpdateError::wrongLength;
    row("cut off before it was signed", good.chopped(40), UpdateError::archiveInvalid);
    row("no archive", "something else", UpdateError::archiveInvalid);
    row("an older version again", UpdateFixture::archive(u"810"_s), UpdateError::wrongVersion);
    row("another version inside", UpdateFixture::archive(u"812"_s, u"810"_s, script),
        UpdateError::wrongVersion);
    row("no number", UpdateFixture::archive(u"812"_s, QString(), script), UpdateError::archiveInvalid);
    row("does not work here", UpdateFixture::archive(u"812"_s, u"812"_s, "#!/bin/sh\nexit 1\n"),
        UpdateError::selfTestFailed);
    row("crashes here", UpdateFixture::archive(u"812"_s, u"812"_s, "#!/bin/sh\nkill -SEGV $$\n"),
        UpdateError::selfTestFailed);
    row("hangs", UpdateFixture::archive(u"812"_s, u"812"_s, "#!/bin/sh\nsleep 1000\n"),
        UpdateError::selfTestFailed);
    row("no program for this machine",
        UpdateFixture::archive(u"812"_s, u"812"_s,
                               "\x7f"
                               "ELF"),
        UpdateError::selfTestFailed);
}

void VersionedInstallerTest::whatIsWrongChangesNothing()
{
    QFETCH(const QByteArray, announced);
    QFETCH(const QByteArray, arrived);
    QFETCH(const UpdateError, error);
    auto setup = f->setup();
    setup.limits.selfTest = 2s;
    VersionedInstaller installer(setup);
    const auto before = installation();
    const Result<void> done = UpdateFixture::prepared(installer, item(announced), arrived);
    QCOMPARE(done.error(), make_error_code(error));
    QCOMPARE(installer.activate(item(announced), {}).error(),
             make_error_code(UpdateError::installationFailed));
    QCOMPARE(installation(), before);
    QCOMPARE(namesIn(u".updates"_s), QStringList(u"lock"_s));
}

void VersionedInstallerTest::aFullDiskChangesNothing()
{
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    VersionedInstaller installer(f->setup());
    InstalledTree::write(installer.archiveFile(item(archive)).value(), archive);
    const auto before = installation();
    Result<void> done;
    {
        const FullDisk full; // for the unpacker too
        done = QCoro::waitFor(installer.prepare(item(archive)));
    }
    QCOMPARE(done.error(), make_error_code(UpdateError::diskFull));
    QCOMPARE(installation(), before);
    QCOMPARE(namesIn(u".updates"_s), QStringList(u"lock"_s));

    QVERIFY(UpdateFixture::prepared(installer, item(archive), archive).has_value());
    const auto prepared = installation();
    {
        const FullDisk full;
        QVERIFY(!installer.activate(item(archive), {}).has_value());
    }
    QCOMPARE(installation(), prepared);
}

void VersionedInstallerTest::aDiskThatIsTooSmallIsToldBeforeTheDownload()
{
    UpdateItem large = item("some bytes");
    large.length = 1LL << 60;
    VersionedInstaller installer(f->setup());
    QCOMPARE(installer.archiveFile(large).error(), make_error_code(UpdateError::diskFull));
}

void VersionedInstallerTest::aFolderThatCannotBeWrittenIsLeftAlone()
{
    const QByteArray root = f->tree.root().toUtf8();
    const bool isRoot = ::geteuid() == 0;
    if (isRoot &&
        (::mount(root.constData(), root.constData(), nullptr, MS_BIND, nullptr) != 0 ||
         ::mount(nullptr, root.constData(), nullptr, MS_REMOUNT | MS_BIND | MS_RDONLY, nullptr) != 0))
        QSKIP("no mounts for root here");
    if (!isRoot)
        ::chmod(root.constData(), S_IRUSR | S_IXUSR);
    const auto before = f->tree.content();
    VersionedInstaller installer(f->setup());
    const Result<void> checked = installer.check();
    const Result<QString> file = installer.archiveFile(item("bytes"));
    const Result<void> done = QCoro::waitFor(installer.prepare(item("bytes")));
    const bool isUnchanged = f->tree.content() == before;
    isRoot ? ::umount2(root.constData(), MNT_DETACH) : ::chmod(root.constData(), S_IRWXU);
    const std::error_code readOnly = make_error_code(UpdateError::folderReadOnly);
    QVERIFY(isUnchanged);
    QVERIFY(checked.error() == readOnly && file.error() == readOnly && done.error() == readOnly);
}

void VersionedInstallerTest::oneCopyUpdatesAtATime()
{
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    auto first = std::make_unique<VersionedInstaller>(f->setup());
    VersionedInstaller second(f->setup());
    QVERIFY(first->archiveFile(item(archive)).has_value());
    QCOMPARE(second.archiveFile(item(archive)).error(), make_error_code(UpdateError::busy));
    first.reset();
    QVERIFY(UpdateFixture::prepared(second, item(archive), archive).has_value());
}

void VersionedInstallerTest::whatIsNotPreparedIsReplaced()
{
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    f->tree.add(u"812"_s); // unpacked by hand, maybe half
    InstalledTree::write(f->tree.path(u"versions/812/half"_s), "a file");
    VersionedInstaller installer(f->setup());
    QVERIFY(!installer.isPrepared(item(archive)));
    QVERIFY(UpdateFixture::prepared(installer, item(archive), archive).has_value());
    QVERIFY(installer.isPrepared(item(archive)));
    QVERIFY(!QFile::exists(f->tree.path(u"versions/812/half"_s)));
}

void VersionedInstallerTest::aVersionIsNotPutInPlaceOverANewerOne()
{
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    VersionedInstaller installer(f->setup());
    QVERIFY(UpdateFixture::prepared(installer, item(archive), archive).has_value());
    f->tree.add(u"813"_s);
    f->tree.makeCurrent(u"813"_s); // by somebody else meanwhile
    QVERIFY(!installer.activate(item(archive), {}).has_value());
    QCOMPARE(f->tree.seenBy(u"811"_s).currentVersion(), u"813"_s);
}

void VersionedInstallerTest::aVersionOnTrialIsNotReplaced()
{
    const QByteArray archives[] = {UpdateFixture::archive(u"812"_s), UpdateFixture::archive(u"813"_s)};
    {
        VersionedInstaller old(f->setup());
        QVERIFY(UpdateFixture::prepared(old, item(archives[0]), archives[0]).has_value());
        QVERIFY(old.activate(item(archives[0]), {}).has_value());
    }
    VersionTrial trial = VersionTrial::begin(f->tree.seenBy(u"812"_s));
    VersionedInstaller installer(f->setup(u"812"_s));
    const UpdateItem next = item(archives[1], u"813"_s);
    QVERIFY(UpdateFixture::prepared(installer, next, archives[1]).has_value());
    QVERIFY(!installer.activate(next, {}).has_value());
    trial.confirm();
    QVERIFY(installer.activate(next, {}).has_value());
}

void VersionedInstallerTest::theNextStartPutsInPlaceWhatWaitsForIt()
{
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    const InstalledVersions installed = f->tree.seenBy(u"811"_s);
    {
        VersionedInstaller installer(f->setup());
        QVERIFY(!installer.activateAtNextStart(item(archive)));
        QVERIFY(UpdateFixture::prepared(installer, item(archive), archive).has_value());
        QVERIFY(installer.activateAtNextStart(item(archive)));
        QVERIFY(!PendingVersion::activate(installed)); // while this copy runs
    }
    QCOMPARE(installed.currentVersion(), u"811"_s);
    QVERIFY(PendingVersion::activate(installed));
    QCOMPARE(installed.currentVersion(), u"812"_s);
    QVERIFY(!PendingVersion::activate(installed));
    QCOMPARE(VersionTrial::begin(f->tree.seenBy(u"812"_s)).outcome(), VersionTrial::Outcome::onTrial);
}

void VersionedInstallerTest::whatDoesNotFitIsForgotten_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QByteArray>("content");
    const QString pending = u"pending.json"_s;
    QTest::newRow("garbage") << pending << QByteArray("{\"version\": 812");
    QTest::newRow("another archive") << pending << QByteArray(R"({"version": "812", "signature": "00"})");
    QTest::newRow("a path") << pending << QByteArray(R"({"version": "../812", "signature": "00"})");
    QTest::newRow("rejected") << u"rejected.json"_s << QByteArray(R"({"versions": ["812"]})");
    QTest::newRow("gone") << u"versions/812/.prepared"_s << QByteArray();
}

void VersionedInstallerTest::whatDoesNotFitIsForgotten()
{
    QFETCH(const QString, file);
    QFETCH(const QByteArray, content);
    const QByteArray archive = UpdateFixture::archive(u"812"_s);
    {
        VersionedInstaller installer(f->setup());
        QVERIFY(UpdateFixture::prepared(installer, item(archive), archive).has_value());
        QVERIFY(installer.activateAtNextStart(item(archive)));
    }
    InstalledTree::write(f->tree.path(file), content);
    const InstalledVersions installed = f->tree.seenBy(u"811"_s);
    QVERIFY(!PendingVersion::activate(installed));
    QCOMPARE(installed.currentVersion(), u"811"_s);
    QVERIFY(!QFile::exists(f->tree.path(u"pending.json"_s)));
}

void VersionedInstallerTest::anotherDownloadIsThrownAway()
{
    VersionedInstaller installer(f->setup());
    const QString first = installer.archiveFile(item("first")).value();
    InstalledTree::write(first, "fir");
    QCOMPARE(installer.archiveFile(item("first")).value(), first);
    QCOMPARE(InstalledTree::read(first), QByteArray("fir"));
    QVERIFY(installer.archiveFile(item("second")).value() != first);
    QVERIFY(!QFile::exists(first));
}

void VersionedInstallerTest::cleaningKeepsWhatIsNeeded_data()
{
    QTest::addColumn<bool>("isFormerKnown");
    QTest::newRow("with a link to the former version") << true;
    QTest::newRow("without") << false;
}

void VersionedInstallerTest::cleaningKeepsWhatIsNeeded()
{
    const QByteArray archive = UpdateFixture::archive(u"813"_s);
    for (const QString &version : {u"808"_s, u"809"_s, u"810"_s, u"812"_s, u"900"_s})
        f->tree.add(version);
    f->tree.makeCurrent(u"812"_s);
    QFile::link(u"versions/811"_s, f->tree.path(u"previous"_s));
    InstalledTree::write(f->tree.path(u"versions/mine/.prepared"_s), "a person's own folder, not a version");
    InstalledTree::write(f->tree.path(u".updates/work-123456/tree/file"_s), "left by a kill");
    const VersionTrial elsewhere = VersionTrial::begin(f->tree.seenBy(u"809"_s)); // runs
    VersionedInstaller installer(f->setup(u"812"_s));
    QVERIFY(UpdateFixture::prepared(installer, item(archive, u"813"_s), archive).has_value());

    InstalledTree::write(f->tree.path(u"trial.json"_s),
                         R"({"version": "812", "previous": "811", "handover": {"window": false}})");
    QCoro::waitFor(installer.clean());
    QCOMPARE(namesIn(u"versions"_s).size(), 8); // not while one is on trial

    QVERIFY(QFile::remove(f->tree.path(u"trial.json"_s)));
    QFETCH(const bool, isFormerKnown);
    if (!isFormerKnown) // the link could not be made
        QVERIFY(QFile::remove(f->tree.path(u"previous"_s)));
    InstalledTree::write(f->tree.path(u"rejected.json"_s), R"({"versions": ["813"]})"); // and asked for again
    QCoro::waitFor(installer.clean());
    QCOMPARE(namesIn(u"versions"_s), QStringList({u"809"_s, u"811"_s, u"812"_s, u"813"_s}));
    QCOMPARE(namesIn(u".updates"_s), QStringList(u"lock"_s));
}

void VersionedInstallerTest::onlyAWholeKeyIsAKey_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isKey");
    const QString good = QString::fromLatin1(QByteArray(32, '\x07').toBase64());
    QTest::newRow("good") << good << true;
    QTest::newRow("a space behind") << good + u' ' << false;
    QTest::newRow("no padding") << good.chopped(1) << false;
    QTest::newRow("stray bits") << good.chopped(2) + u"d="_s << false;
    QTest::newRow("31 bytes") << QString::fromLatin1(QByteArray(31, '\x07').toBase64()) << false;
    QTest::newRow("other letters") << QString(44, u'é') << false;
}

void VersionedInstallerTest::onlyAWholeKeyIsAKey()
{
    QFETCH(const QString, text);
    QFETCH(const bool, isKey);
    QCOMPARE(ArchiveSignature::parseKey(text).has_value(), isKey);

    VersionedInstaller::Configuration setup = f->setup();
    QVERIFY(VersionedInstaller(setup).check());
    setup.key = ArchiveSignature::parseKey(text).value_or(QByteArray());
    QCOMPARE(VersionedInstaller(setup).check().has_value(), isKey);
}

QTEST_GUILESS_MAIN(VersionedInstallerTest)
#include "versioned_installer_test.moc"

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/InstalledTree.h"
#include "updates/linux/InstallationKind.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

class InstalledVersionsTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init()
    {
        tree = std::make_unique<InstalledTree>();
        tree->add(u"812"_s);
        tree->makeCurrent(u"812"_s);
    }
    void anExecutableTellsItsInstallation();
    void whatIsLaidOutOtherwiseIsNone_data();
    void whatIsLaidOutOtherwiseIsNone();
    void onlyALinkToAVersionNamesTheCurrentOne_data();
    void onlyALinkToAVersionNamesTheCurrentOne();
    void somebodyKeepsEachCopyCurrent_data();
    void somebodyKeepsEachCopyCurrent();

private:
    std::unique_ptr<InstalledTree> tree;
};

void InstalledVersionsTest::anExecutableTellsItsInstallation()
{
    const auto installed = InstalledVersions::ofExecutable(tree->path(u"versions/812/bin/quorvane"_s));
    QVERIFY(installed.has_value());
    QCOMPARE(installed->root(), tree->root());
    QCOMPARE(installed->own(), u"812"_s);
    QCOMPARE(installed->currentVersion(), u"812"_s);
    QCOMPARE(installed->previousVersion(), std::nullopt);
    QVERIFY(installed->isExecutable(u"812"_s) && !installed->isExecutable(u"813"_s));
    const auto before = tree->content();
    QVERIFY(installed->canChange());
    QCOMPARE(tree->content(), before);
}

void InstalledVersionsTest::whatIsLaidOutOtherwiseIsNone_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("empty") << QString();
    QTest::newRow("no folder of versions") << u"/812/bin/quorvane"_s;
    QTest::newRow("no folder of programs") << u"/versions/812/quorvane"_s;
    QTest::newRow("no version's name") << u"/versions/.work/bin/quorvane"_s;
    QTest::newRow("no current version") << u"/other/versions/812/bin/quorvane"_s;
}

void InstalledVersionsTest::whatIsLaidOutOtherwiseIsNone()
{
    QFETCH(const QString, path);
    QVERIFY(!InstalledVersions::ofExecutable(path.isEmpty() ? path : tree->root() + path));
}

void InstalledVersionsTest::onlyALinkToAVersionNamesTheCurrentOne_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("version");
    QTest::newRow("relative") << u"versions/900"_s << u"900"_s;
    QTest::newRow("absolute") << u"ROOT/versions/900"_s << u"900"_s;
    QTest::newRow("by hand") << u"./versions/900/"_s << u"900"_s;
    QTest::newRow("elsewhere") << u"/opt/versions/900"_s << QString();
    QTest::newRow("deeper") << u"versions/900/bin"_s << QString();
    QTest::newRow("up") << u"versions/.."_s << QString();
}

void InstalledVersionsTest::onlyALinkToAVersionNamesTheCurrentOne()
{
    QFETCH(QString, target);
    QFETCH(const QString, version);
    target.replace(u"ROOT"_s, tree->root());
    QVERIFY(QFile::remove(tree->path(u"current"_s)));
    QVERIFY(::symlink(qPrintable(target), qPrintable(tree->path(u"current"_s))) == 0);
    QCOMPARE(tree->seenBy(u"812"_s).currentVersion().value_or(QString()), version);
    QCOMPARE(tree->seenBy(u"812"_s).canChange(), !version.isEmpty());
}

void InstalledVersionsTest::somebodyKeepsEachCopyCurrent_data()
{
    QTest::addColumn<QString>("executable");
    QTest::addColumn<QString>("variable");
    QTest::addColumn<InstallationKind>("kind");
    const QString none;
    const QString own = u"versions/812/bin/quorvane"_s;
    QTest::newRow("package") << u"/usr/bin/quorvane"_s << none << InstallationKind::packageManager;
    QTest::newRow("built by hand") << u"/usr/local/bin/quorvane"_s << none
                                   << InstallationKind::packageManager;
    QTest::newRow("AppImage") << u"/tmp/.mount/usr/bin/quorvane"_s << u"APPIMAGE"_s
                              << InstallationKind::sandbox;
    QTest::newRow("snap") << u"/snap/q/usr/bin/quorvane"_s << u"SNAP"_s << InstallationKind::sandbox;
    QTest::newRow("Flatpak") << u"/app/bin/quorvane"_s << u"flatpak"_s << InstallationKind::sandbox;
    QTest::newRow("archive") << own << none << InstallationKind::itself;
    QTest::newRow("archive, started in an AppImage") << own << u"APPIMAGE"_s << InstallationKind::itself;
}

void InstalledVersionsTest::somebodyKeepsEachCopyCurrent()
{
    QFETCH(QString, executable);
    QFETCH(const QString, variable);
    QFETCH(const InstallationKind, kind);
    if (!executable.startsWith(u'/'))
        executable = tree->path(executable);
    QProcessEnvironment environment;
    environment.insert(variable.isEmpty() ? u"HOME"_s : variable, u"/home/me"_s);
    const QString mark = variable == u"flatpak" ? tree->root() : u"/nonexistent"_s;
    QCOMPARE(installationKind(executable, environment, mark), kind);
}

QTEST_GUILESS_MAIN(InstalledVersionsTest)
#include "installed_versions_test.moc"

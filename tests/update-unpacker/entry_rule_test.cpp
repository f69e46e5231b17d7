// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/EntryRule.h"

#include <QTest>

using namespace quorvane;
using Kind = ArchiveEntry::Kind;
using Entries = QList<ArchiveEntry>;
Q_DECLARE_METATYPE(Entries)

namespace {

ArchiveEntry file(const QByteArray &path, std::int64_t size = 1)
{
    return {.path = path, .kind = Kind::file, .size = size};
}

ArchiveEntry folder(const QByteArray &path)
{
    return {.path = path, .kind = Kind::folder};
}

ArchiveEntry linkTo(const QByteArray &path, const QByteArray &target)
{
    return {.path = path, .kind = Kind::link, .target = target};
}

Entries files(qsizetype count)
{
    Entries entries{folder("Quorvane")};
    while (entries.size() < count)
        entries.append(file("Quorvane/" + QByteArray::number(entries.size())));
    return entries;
}

} // namespace

class EntryRuleTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void whatAnUpdateHoldsIsAccepted_data();
    void whatAnUpdateHoldsIsAccepted();
    void theLastEntryIsRefused_data();
    void theLastEntryIsRefused();
};

void EntryRuleTest::whatAnUpdateHoldsIsAccepted_data()
{
    QTest::addColumn<Entries>("entries");
    const QByteArray name(EntryRule::longestName, 'n');
    QTest::newRow("folders first") << Entries{folder("Quorvane"), folder("Quorvane/bin"),
                                              file("Quorvane/bin/a b~")};
    QTest::newRow("folders later") << Entries{file("Quorvane/bin/a"), folder("Quorvane/bin"),
                                              folder("Quorvane")};
    QTest::newRow("names that look like steps") << Entries{file("Quorvane/..."), file("Quorvane/..a")};
    QTest::newRow("a link beside it") << Entries{linkTo("Quorvane/lib/a.so", "a.so.1")};
    QTest::newRow("a link down") << Entries{linkTo("Quorvane/a", "lib/b/c")};
    QTest::newRow("a link up and down") << Entries{linkTo("Quorvane/a/b/c", "../../d/e")};
    QTest::newRow("the longest name") << Entries{file("Quorvane/" + name)};
    QTest::newRow("as many as there may be") << files(EntryRule::mostEntries);
    QTest::newRow("as much as there may be") << Entries{file("Quorvane/a", EntryRule::mostBytes - 1),
                                                        file("Quorvane/b", 1), file("Quorvane/c", 0)};
}

void EntryRuleTest::whatAnUpdateHoldsIsAccepted()
{
    QFETCH(Entries, entries);
    EntryRule rule;
    QVERIFY(rule.isEmpty());
    for (const ArchiveEntry &entry : entries)
        QVERIFY2(rule.accepts(entry), entry.path.constData());
    QVERIFY(!rule.isEmpty());
}

void EntryRuleTest::theLastEntryIsRefused_data()
{
    QTest::addColumn<Entries>("entries");
    const auto path = [](const char *name, const QByteArray &text) {
        QTest::newRow(name) << Entries{file(text)};
    };
    path("no name", "");
    path("absolute", "/Quorvane/a");
    path("up", "../Quorvane/a");
    path("up within", "Quorvane/a/../b");
    path("up at the end", "Quorvane/..");
    path("a dot before", "./Quorvane/a");
    path("a dot within", "Quorvane/./a");
    path("two slashes", "Quorvane//a");
    path("a slash at the end", "Quorvane/a/");
    path("another folder", "Other/a");
    path("a name that begins alike", "Quorvane2/a");
    path("the top folder as a file", "Quorvane");
    path("NUL", QByteArray("Quorvane/a\0b", 12));
    path("a line break", "Quorvane/a\nb");
    path("delete", "Quorvane/a\x7f");
    path("more than ASCII", "Quorvane/\xc3\xa4");
    path("a name that is too long", "Quorvane/" + QByteArray(EntryRule::longestName + 1, 'n'));
    path("a path that is too long", "Quorvane" + QByteArray("/n").repeated(EntryRule::longestPath / 2));

    const auto target = [](const char *name, const QByteArray &text) {
        QTest::newRow(name) << Entries{linkTo("Quorvane/a/b", text)};
    };
    target("a link to nothing", "");
    target("a link to an absolute path", "/etc");
    target("a link out", "../../a");
    target("a link up behind a name", "c/../../d");
    target("a link with a dot", "./c");
    target("a link with a line break", "c\n");
    target("a link that is too long", QByteArray("n/").repeated(EntryRule::longestPath / 2) + "n");
    QTest::newRow("the top folder as a link") << Entries{linkTo("Quorvane", "a")};
    QTest::newRow("through a link") << Entries{linkTo("Quorvane/a", "b"), file("Quorvane/a/c")};
    QTest::newRow("deep through a link") << Entries{linkTo("Quorvane/a", "b"), folder("Quorvane/a/c/d")};
    QTest::newRow("through a file") << Entries{file("Quorvane/a"), file("Quorvane/a/b")};

    QTest::newRow("a file twice") << Entries{file("Quorvane/a"), file("Quorvane/a")};
    QTest::newRow("a folder twice") << Entries{folder("Quorvane/a"), folder("Quorvane/a")};
    QTest::newRow("a link over a folder") << Entries{file("Quorvane/a/b"), linkTo("Quorvane/a", "c")};
    QTest::newRow("a folder over a link") << Entries{linkTo("Quorvane/a", "c"), folder("Quorvane/a")};
    QTest::newRow("another kind") << Entries{{.path = "Quorvane/a", .kind = Kind::other}};

    QTest::newRow("a size below nothing") << Entries{file("Quorvane/a", -1)};
    QTest::newRow("too much") << Entries{file("Quorvane/a", EntryRule::mostBytes), file("Quorvane/b", 1)};
    QTest::newRow("far too much") << Entries{file("Quorvane/a", 1),
                                             file("Quorvane/b", std::numeric_limits<std::int64_t>::max())};
    QTest::newRow("too many") << files(EntryRule::mostEntries + 1);
    Entries implying = files(EntryRule::mostEntries - 1);
    implying.append(file("Quorvane/a/b/c"));
    QTest::newRow("too many folders on the way") << implying;
}

void EntryRuleTest::theLastEntryIsRefused()
{
    QFETCH(Entries, entries);
    const ArchiveEntry last = entries.takeLast();
    EntryRule rule;
    for (const ArchiveEntry &entry : entries)
        QVERIFY2(rule.accepts(entry), entry.path.constData());
    QVERIFY(!rule.accepts(last));
}

QTEST_APPLESS_MAIN(EntryRuleTest)
#include "entry_rule_test.moc"

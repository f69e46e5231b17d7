// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "model/SourceList.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

using State = SourceHealth::State;

class SourceListTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void accountsAreListedByName();
    void onlyWhatFailsIsSaidToFail();
    void onlyALongReadingIsToldOf();
    void theSecondSourceIsListedOnceItIsExpected();
    void aFolderBelongsToTheAccountThatLiesInIt();

private:
    using States = std::vector<std::pair<QString, State>>;

    static StoreState store(const std::vector<CalendarOption> &calendars)
    {
        return {
            .name = u"Store"_s, .calendars = calendars, .readings = {{u"a"_s, 7}, {u"B"_s, 8}, {u""_s, 9}}};
    }
    [[nodiscard]] SourceHealth only(const SourceList::Situation &situation) const
    {
        const std::vector<SourceHealth> list = SourceList::of(situation);
        return list.size() == 1 ? list.front() : SourceHealth();
    }
    static States states(const std::vector<SourceHealth> &list)
    {
        States found;
        found.reserve(list.size());
        for (const SourceHealth &entry : list)
            found.emplace_back(entry.account, entry.state);
        return found;
    }

    FantasticalSource fantastical;
};

void SourceListTest::accountsAreListedByName()
{
    const auto list = SourceList::of({.stores = {store({{u"1"_s, u"x"_s, u"B"_s},
                                                        {u"2"_s, u"y"_s, u"a"_s},
                                                        {u"3"_s, u"z"_s, u"B"_s},
                                                        {u"4"_s, u"z"_s, u""_s}})},
                                      .fantastical = fantastical});
    QCOMPARE(states(list),
             States({{u"a"_s, State::upToDate}, {u"B"_s, State::upToDate}, {u"Store"_s, State::upToDate}}));
    QCOMPARE(list[0].lastRead, QDateTime::fromSecsSinceEpoch(7));
    QCOMPARE(list[2].lastRead, QDateTime::fromSecsSinceEpoch(9));
}

void SourceListTest::onlyWhatFailsIsSaidToFail()
{
    StoreState state = store({{u"1"_s, u"x"_s, u"a"_s}, {u"2"_s, u"y"_s, u"B"_s}, {u"3"_s, u"z"_s, u"B"_s}});
    const auto found = [&] {
        return states(SourceList::of({.stores = {state}, .fantastical = fantastical}));
    };
    state.problem = CalendarError::unreadable;
    state.unreadableCalendars = {u"2"_s};
    QCOMPARE(found(), States({{u"a"_s, State::upToDate}, {u"B"_s, State::failing}}));
    state.unreadableCalendars.clear();
    QCOMPARE(found(), States({{u"a"_s, State::failing}, {u"B"_s, State::failing}}));
    state.calendars.clear();
    QCOMPARE(found(), States({{u"Store"_s, State::failing}}));
    state.isAbsent = true;
    QCOMPARE(found(), States());
}

void SourceListTest::onlyALongReadingIsToldOf()
{
    StoreState state = store({{u"1"_s, u"x"_s, u"a"_s}});
    state.isBusy = true;
    QCOMPARE(only({.stores = {state}, .fantastical = fantastical}).state, State::upToDate);
    QCOMPARE(only({.stores = {state}, .fantastical = fantastical, .isRefreshSlow = true}).state,
             State::refreshing);
    state.isBusy = false;
    QCOMPARE(only({.stores = {state}, .fantastical = fantastical, .isRefreshSlow = true}).state,
             State::upToDate);
}

void SourceListTest::theSecondSourceIsListedOnceItIsExpected()
{
    QVERIFY(SourceList::of({.fantastical = fantastical}).empty());
    const SourceList::Situation expected{.fantastical = fantastical, .isFantasticalExpected = true};
    QCOMPARE(only(expected), SourceHealth({.account = u"Fantastical"_s, .isFantastical = true}));
    fantastical.take(FantasticalSnapshot{}, 50);
    QCOMPARE(only(expected).state, State::upToDate);
    fantastical.take(Failure(std::make_error_code(std::errc::io_error)), 60);
    QCOMPARE(only(expected).state, State::failing);
    QCOMPARE(only(expected).lastRead, QDateTime::fromSecsSinceEpoch(50));
}

void SourceListTest::aFolderBelongsToTheAccountThatLiesInIt()
{
    const StoreState state = store({{u"folder:/home/a/Team/work"_s, u"x"_s, u"Team"_s},
                                    {u"folder:/home/a/Teams/work"_s, u"y"_s, u"B"_s}});
    const auto list = SourceList::of(
        {.stores = {state}, .folders = {u"/home/a/Team"_s, u"/not/there"_s}, .fantastical = fantastical});
    QCOMPARE(states(list),
             States({{u"B"_s, State::upToDate}, {u"Team"_s, State::upToDate}, {u"there"_s, State::waiting}}));
    QCOMPARE(list[0].folder, QString());
    QCOMPARE(list[1].folder, u"/home/a/Team"_s);
    QCOMPARE(list[2].folder, u"/not/there"_s);
}

QTEST_GUILESS_MAIN(SourceListTest)

#include "source_list_test.moc"

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/ModelFixture.h"
#include "ui/dashboard/Banner.h"
#include "ui/dashboard/SidebarStatus.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

const double now = static_cast<double>(QDateTime(QDate(2026, 7, 14), QTime(9, 48)).toSecsSinceEpoch());

Meeting meetingIn(double seconds)
{
    return {.id = u"m"_s, .title = u"Review"_s, .start = now + seconds, .end = now + seconds + 1800};
}

SourceHealth source(const QString &account, SourceHealth::State state, double lastRead = 0)
{
    SourceHealth health{.account = account, .state = state};
    if (lastRead > 0)
        health.lastRead = QDateTime::fromMSecsSinceEpoch(std::llround(lastRead * 1000));
    return health;
}

constexpr auto fine = SourceHealth::State::upToDate;
constexpr auto failing = SourceHealth::State::failing;

} // namespace

class DashboardTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theFootTellsWhetherTheUserIsProtected_data()
    {
        QTest::addColumn<bool>("paused");
        QTest::addColumn<int>("failures");
        QTest::addColumn<int>("calendars");
        QTest::addColumn<double>("next");
        QTest::addColumn<QString>("line");
        QTest::addColumn<QString>("detail");
        QTest::addColumn<bool>("needsAttention");
        QTest::newRow("all is well") << false << 0 << 6 << 720.0 << u"Watching 6 calendars"_s
                                     << u"Next alert at 9:59"_s << false;
        QTest::newRow("one calendar")
            << false << 0 << 1 << 720.0 << u"Watching 1 calendar"_s << u"Next alert at 9:59"_s << false;
        QTest::newRow("paused comes first")
            << true << 1 << 6 << 720.0 << u"Paused until 9:53"_s << u"Next alert at 9:59"_s << true;
        QTest::newRow("a source fails")
            << false << 1 << 6 << 720.0 << u"One source needs you"_s << u"Next alert at 9:59"_s << true;
        QTest::newRow("two sources fail")
            << false << 2 << 6 << 720.0 << u"2 sources need you"_s << u"Next alert at 9:59"_s << true;
        QTest::newRow("first start") << false << 0 << 0 << 0.0 << u"Ready"_s << u"No calendar yet"_s << false;
        QTest::newRow("nothing ahead")
            << false << 0 << 2 << 0.0 << u"Watching 2 calendars"_s << u"No alert ahead"_s << false;
        QTest::newRow("the next one's alert is over")
            << false << 0 << 2 << 59.0 << u"Watching 2 calendars"_s << u"No alert ahead"_s << false;
        QTest::newRow("tomorrow") << false << 0 << 2 << 86400.0 << u"Watching 2 calendars"_s
                                  << u"Next alert: Tomorrow, 9:47"_s << false;
    }
    void theFootTellsWhetherTheUserIsProtected()
    {
        QFETCH(bool, paused);
        QFETCH(int, failures);
        QFETCH(int, calendars);
        QFETCH(double, next);
        std::vector<SourceHealth> sources(static_cast<std::size_t>(failures), source(u"A"_s, failing));
        sources.push_back(source(u"B"_s, fine));
        const std::vector<Meeting> scheduled =
            next > 0 ? std::vector{meetingIn(next)} : std::vector<Meeting>();
        std::optional<QDateTime> pausedUntil;
        if (paused)
            pausedUntil = QDateTime::fromSecsSinceEpoch(static_cast<qint64>(now) + 300);

        const SidebarStatus status = SidebarStatus::of({now, pausedUntil, sources, calendars, scheduled});
        QTEST(status.line, "line");
        QTEST(status.detail, "detail");
        QTEST(status.needsAttention, "needsAttention");
    }

    void whatWentWellLeavesByItselfAndWhatWentWrongStays()
    {
        ModelFixture fixture;
        fixture.start(AppModel::Mode::preview);
        fixture.model->showPreview({.notice = u"Added."_s, .noticeKind = NoticeKind::success});
        Banner banner(*fixture.model);
        QCOMPARE(banner.text(), u"Added."_s);
        banner.setProperty("held", true);
        QTest::qWait(6500);
        QCOMPARE(banner.text(), u"Added."_s);
        banner.setProperty("held", false);
        QTRY_VERIFY_WITH_TIMEOUT(banner.text().isEmpty(), 9000);
        QVERIFY(!fixture.model->notice());

        fixture.model->showPreview({.notice = u"Lost."_s, .noticeKind = NoticeKind::problem});
        QTest::qWait(6500);
        QCOMPARE(banner.text(), u"Lost."_s);
        QVERIFY(banner.isProblem());
    }

    void aSourceThatFailsIsToldOfUntilItIsPutAwayAndAgainWhenItFailsAnew()
    {
        ModelFixture fixture;
        fixture.start(AppModel::Mode::preview);
        Banner banner(*fixture.model);
        const auto show = [&](SourceHealth::State state) {
            PreviewContent content;
            content.sources = {source(u"Northwind"_s, state, now - 3 * 3600)};
            fixture.model->showPreview(content);
        };
        show(failing);
        QCOMPARE(banner.text(), u"Northwind did not answer. Its alerts use the schedule from 6:48."_s);
        QVERIFY(banner.isProblem());
        QCOMPARE(banner.actionText(), u"Try again"_s);
        banner.dismiss();
        QVERIFY(banner.text().isEmpty());
        show(failing);
        QVERIFY(banner.text().isEmpty());
        show(fine);
        show(failing);
        QVERIFY(!banner.text().isEmpty());
    }
};

QTEST_MAIN(DashboardTest)
#include "dashboard_test.moc"

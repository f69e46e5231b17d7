// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/CalendarError.h"
#include "calendars/CalendarReader.h"
#include "commands/TestMeetingCommand.h"
#include "tests/support/ScriptedStore.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

enum class Default { writable, readOnly, absent, unknown };

class ScriptedWriter final : public EventWriter
{
public:
    ScriptedWriter(QString title, Default calendar, QStringList &written)
        : m_title(std::move(title))
        , m_calendar(calendar)
        , m_written(written)
    {
    }

    [[nodiscard]] QCoro::Task<Result<std::optional<DefaultCalendar>>> defaultCalendar() override
    {
        if (m_calendar == Default::unknown)
            co_return Failure(make_error_code(CalendarError::timedOut));
        if (m_calendar == Default::absent)
            co_return std::nullopt;
        co_return DefaultCalendar{.title = m_title, .isWritable = m_calendar == Default::writable};
    }

    [[nodiscard]] QCoro::Task<Result<void>> add(NewEvent) override
    {
        m_written.append(m_title);
        co_return Result<void>();
    }

private:
    QString m_title;
    Default m_calendar;
    QStringList &m_written;
};

} // namespace

class CalendarChoiceTest final : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void aTestMeetingGoesToTheFirstDefaultCalendar_data();
    void aTestMeetingGoesToTheFirstDefaultCalendar();
};

void CalendarChoiceTest::aTestMeetingGoesToTheFirstDefaultCalendar_data()
{
    QTest::addColumn<std::error_code>("access");
    QTest::addColumn<Default>("first");
    QTest::addColumn<Default>("second");
    QTest::addColumn<int>("status");
    QTest::addColumn<QStringList>("written");
    const std::error_code allowed;
    const auto absent = make_error_code(CalendarError::unavailable);
    const auto hangs = make_error_code(CalendarError::timedOut);
    const QStringList none;

    QTest::addRow("both have one") << allowed << Default::writable << Default::writable << 0
                                   << QStringList{u"1"_s};
    QTest::addRow("the first is not there")
        << allowed << Default::absent << Default::writable << 0 << QStringList{u"2"_s};
    QTest::addRow("neither is there") << allowed << Default::absent << Default::absent << 4 << none;
    QTest::addRow("the first is read-only") << allowed << Default::readOnly << Default::writable << 4 << none;
    QTest::addRow("the first may have one") << allowed << Default::unknown << Default::writable << 4 << none;
    QTest::addRow("nothing was ever set up") << absent << Default::absent << Default::writable << 3 << none;
    QTest::addRow("nobody answers") << hangs << Default::writable << Default::writable << 3 << none;
}

void CalendarChoiceTest::aTestMeetingGoesToTheFirstDefaultCalendar()
{
    QFETCH(std::error_code, access);
    QFETCH(Default, first);
    QFETCH(Default, second);
    QStringList written;
    auto store = std::make_unique<ScriptedStore>();
    store->failure = access;
    std::vector<std::unique_ptr<CalendarStore>> stores;
    stores.push_back(std::move(store));
    CalendarReader reader(std::move(stores));
    TestMeetingCommand::Writers writers;
    writers.push_back(std::make_unique<ScriptedWriter>(u"1"_s, first, written));
    writers.push_back(std::make_unique<ScriptedWriter>(u"2"_s, second, written));
    QStringList lines;
    TestMeetingCommand command(reader, std::move(writers), [&](const QString &line) { lines.append(line); });
    QTEST(QCoro::waitFor(command.run(1'800'000'000)), "status");
    QTEST(written, "written");
    QCOMPARE(lines.size(), 1);
}

QTEST_GUILESS_MAIN(CalendarChoiceTest)
#include "calendar_choice_test.moc"

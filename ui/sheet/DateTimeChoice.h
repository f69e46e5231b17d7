// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/sheet/ClockStyle.h"
#include "ui/sheet/MonthDays.h"
#include "ui/sheet/TypedTime.h"

#include <QDateTime>
#include <QObject>
#include <QStringList>
#include <QTimeZone>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// Choosing a point in time of the coming days: a day of a month, an hour, a minute. What is chosen takes
/// effect at once; a choice that was begun can be taken back. Times are Unix time in seconds, shown in one
/// zone.
class DateTimeChoice final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a form")
    /// The choice in words, such as "Today, 14:15".
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(QString monthTitle READ monthTitle NOTIFY changed)
    /// Short names in the order of the columns.
    Q_PROPERTY(QStringList weekdays READ weekdays CONSTANT)
    Q_PROPERTY(quorvane::MonthDays *days READ days CONSTANT)
    Q_PROPERTY(int dayRow READ dayRow NOTIFY changed)
    Q_PROPERTY(bool hasEarlierMonth READ hasEarlierMonth NOTIFY changed)
    Q_PROPERTY(bool hasLaterMonth READ hasLaterMonth NOTIFY changed)
    Q_PROPERTY(QString hour READ hour NOTIFY changed)
    Q_PROPERTY(QString minute READ minute NOTIFY changed)
    /// The half of the day, where the locale tells the time over 12 hours.
    Q_PROPERTY(QString half READ half NOTIFY changed)

public:
    /// How far ahead a meeting may start, in seconds.
    static constexpr double reach = 1'209'600;

    DateTimeChoice(const QLocale &locale, const QTimeZone &zone, QObject *parent = nullptr);

    [[nodiscard]] double start() const { return m_start; }
    /// Takes any time, also one that cannot be chosen.
    void setStart(double start);
    /// The moment from which on there is something to choose.
    void setNow(double now);

    [[nodiscard]] QString text() const;
    [[nodiscard]] QString monthTitle() const;
    [[nodiscard]] QStringList weekdays() const;
    [[nodiscard]] MonthDays *days() { return &m_days; }
    [[nodiscard]] int dayRow() const { return m_days.chosenRow(); }
    [[nodiscard]] bool hasEarlierMonth() const;
    [[nodiscard]] bool hasLaterMonth() const;
    [[nodiscard]] QString hour() const;
    [[nodiscard]] QString minute() const;
    [[nodiscard]] QString half() const;

    /// `revert` goes back to what was chosen at the last `begin`.
    Q_INVOKABLE void begin() { m_begun = m_start; }
    Q_INVOKABLE void revert() { setStart(m_begun); }

    /// A day of `days`; one that cannot be chosen changes nothing.
    Q_INVOKABLE void chooseDay(int row);
    /// These go as far as there are days to choose.
    Q_INVOKABLE void moveDays(int days);
    Q_INVOKABLE void moveMonths(int months);
    Q_INVOKABLE void moveToWeekBegin();
    Q_INVOKABLE void moveToWeekEnd();

    Q_INVOKABLE void stepHours(int hours);
    /// To the next full five minutes, and on in steps of five.
    Q_INVOKABLE void stepMinutes(int steps);
    Q_INVOKABLE void switchHalf();

    /// What stands in the field of the hour or the minute while it is typed. Takes effect, and is true, as
    /// soon as it is complete.
    Q_INVOKABLE bool typeHour(const QString &text);
    Q_INVOKABLE bool typeMinute(const QString &text);
    /// The field is left: its text counts if it is a time.
    Q_INVOKABLE void leaveHour(const QString &text);
    Q_INVOKABLE void leaveMinute(const QString &text);

Q_SIGNALS:
    void changed();
    void startChanged();

private:
    [[nodiscard]] QDateTime shown() const;
    [[nodiscard]] QDate today() const;
    [[nodiscard]] QDate lastDay() const;
    [[nodiscard]] double latest() const;
    void chooseDate(QDate date);
    void chooseTime(QTime time);
    void stepTo(double start);
    void refreshDays();

    const QLocale m_locale;
    const QTimeZone m_zone;
    const ClockStyle m_style;
    MonthDays m_days;
    double m_start = 0;
    double m_begun = 0;
    double m_now = 0;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractListModel>
#include <QDate>
#include <QLocale>
#include <QtQml/qqmlregistration.h>

#include <vector>

namespace quorvane {

/// The days of one month as a picker shows them: six whole weeks, the first with the month's first day in it.
/// Always the same number of rows; they change in place.
class MonthDays final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a DateTimeChoice")

public:
    enum Role {
        /// The day of the month in the locale's digits.
        Number = Qt::UserRole,
        /// The whole date in words.
        Name,
        Selectable,
        Today,
        Chosen,
        InMonth,
    };

    static constexpr int weeks = 6;
    static constexpr int count = 7 * weeks;

    /// What is shown: the month of `chosen`, with the days from `first` to `last` to choose from.
    struct Content
    {
        QDate chosen;
        QDate today;
        QDate first;
        QDate last;

        bool operator==(const Content &) const = default;
    };

    explicit MonthDays(const QLocale &locale, QObject *parent = nullptr);

    void show(const Content &content);

    /// The day in a row.
    [[nodiscard]] QDate dayAt(int row) const { return m_firstShown.addDays(row); }
    /// The row of the chosen day.
    [[nodiscard]] int chosenRow() const;

    [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

private:
    const QLocale m_locale;
    Content m_content;
    QDate m_firstShown;
};

} // namespace quorvane

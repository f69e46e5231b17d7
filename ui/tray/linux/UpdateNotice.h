// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/tray/linux/DesktopNotice.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <functional>

namespace quorvane {

/// A word to who never opens the window: there is a newer version, which waits to be fetched. Each version is
/// told of once, ever, and never beside an alert. Main thread only.
class UpdateNotice final : public QObject
{
    Q_OBJECT

public:
    /// How often it is looked whether an alert has gone.
    static constexpr std::chrono::milliseconds usualPatience{15'000};

    /// What it must know and cannot know by itself.
    struct Surroundings
    {
        /// Whether an alert covers the displays.
        std::function<bool()> isAlertShowing;
        /// The version that the person was told of last, in this run of the program or an earlier one.
        std::function<QString()> lastTold;
        /// Called once a service has taken the word.
        std::function<void(const QString &)> remember;
    };

    explicit UpdateNotice(Surroundings surroundings, QObject *parent = nullptr,
                          std::chrono::milliseconds patience = usualPatience);

    /// Tells of `version` (what it is known by, not shown) with the sentence `headline`, as soon as no alert
    /// shows.
    void tell(const QString &version, const QString &headline);
    /// It needs to be told of no more: it is being fetched, or the person has the window open.
    void withdraw();

Q_SIGNALS:
    /// The person wants to see it; `token` as in `DesktopNotice`.
    void activated(const QString &token);

private:
    void show();

    Surroundings m_surroundings;
    DesktopNotice m_notice;
    QTimer m_wait;
    QString m_version;
    QString m_headline;
};

} // namespace quorvane

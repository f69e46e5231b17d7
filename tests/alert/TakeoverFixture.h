// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/LinkOpener.h"
#include "alert/MotionPreference.h"
#include "alert/Takeover.h"

#include <QElapsedTimer>
#include <QUrl>

#include <memory>
#include <vector>

namespace quorvane {

/// Holds every request until the test answers it.
class HeldOpener final : public LinkOpener
{
public:
    void open(const QUrl &link, std::function<void(bool)> done) override
    {
        opened.append(link);
        pending.push_back(std::move(done));
    }
    void answer(bool taken)
    {
        const auto requests = std::exchange(pending, {});
        for (const auto &request : requests)
            request(taken);
    }
    QList<QUrl> opened;
    std::vector<std::function<void(bool)>> pending;
};

class ChangingMotion final : public MotionPreference
{
    Q_OBJECT

public:
    [[nodiscard]] bool reduceMotion() const override { return m_reduce; }
    void set(bool reduce)
    {
        m_reduce = reduce;
        Q_EMIT changed();
    }

private:
    bool m_reduce = false;
};

/// A takeover whose clock runs on from where the test sets it.
struct TakeoverFixture
{
    explicit TakeoverFixture(const QString &title = QStringLiteral("Design review"),
                             std::optional<QString> link = QStringLiteral("https://meet.example.org/room"))
        : meeting{.id = QStringLiteral("m"), .title = title, .start = 1'800'000'000, .end = 1'800'001'800}
    {
        meeting.joinURL = std::move(link);
        setSecondsLeft(45);
    }

    void setSecondsLeft(double seconds)
    {
        setAt = meeting.start - seconds;
        sinceSet.start();
    }
    [[nodiscard]] double now() const { return setAt + static_cast<double>(sinceSet.nsecsElapsed()) / 1e9; }

    Takeover &make()
    {
        takeover = std::make_unique<Takeover>(
            meeting, [this] { ++acknowledged; }, [this] { ++snoozed; }, opener, motion, nullptr,
            [this] { return now(); });
        return *takeover;
    }

    Meeting meeting;
    double setAt = 0;
    QElapsedTimer sinceSet;
    HeldOpener opener;
    ChangingMotion motion;
    int acknowledged = 0;
    int snoozed = 0;
    std::unique_ptr<Takeover> takeover;
};

} // namespace quorvane

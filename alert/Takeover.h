// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/TakeoverMetrics.h"
#include "core/Meeting.h"

#include <QColor>
#include <QObject>
#include <QString>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

#include <functional>

namespace quorvane {

class LinkOpener;
class MotionPreference;

/// What every panel of one alert shows and offers: the countdown of `event`, its texts, and the three
/// responses. One instance per alert, shared by its panels. Everything on screen is a function of the whole
/// seconds until the start, recomputed from the clock at each tick, so that a late or woken view is right at
/// once.
class Takeover final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made for one alert by its owner")
    Q_PROPERTY(QString title READ title CONSTANT)
    Q_PROPERTY(QString windowTitle READ windowTitle CONSTANT)
    Q_PROPERTY(QString timeRange READ timeRange CONSTANT)
    Q_PROPERTY(bool hasJoinLink READ hasJoinLink CONSTANT)
    Q_PROPERTY(bool mirrored READ isMirrored CONSTANT)
    Q_PROPERTY(qint64 secondsLeft READ secondsLeft NOTIFY secondsLeftChanged)
    Q_PROPERTY(int litTicks READ litTicks NOTIFY secondsLeftChanged)
    Q_PROPERTY(QString clockText READ clockText NOTIFY secondsLeftChanged)
    Q_PROPERTY(QString caption READ caption NOTIFY secondsLeftChanged)
    Q_PROPERTY(QString headline READ headline NOTIFY secondsLeftChanged)
    Q_PROPERTY(QString dialLabel READ dialLabel NOTIFY secondsLeftChanged)
    Q_PROPERTY(QColor tint READ tint NOTIFY secondsLeftChanged)
    Q_PROPERTY(QString announcement READ announcement NOTIFY announcementChanged)
    Q_PROPERTY(qreal ringProgress READ ringProgress NOTIFY ringMoved)
    Q_PROPERTY(qreal ripplePhase READ ripplePhase NOTIFY ringMoved)
    Q_PROPERTY(qreal glowScale READ glowScale NOTIFY glowMoved)
    Q_PROPERTY(bool running READ isRunning NOTIFY runningChanged)
    Q_PROPERTY(bool reduceMotion READ reduceMotion NOTIFY reduceMotionChanged)

public:
    /// Unix time in seconds.
    using Clock = std::function<double()>;

    /// The actions may destroy the takeover. An empty `now` is the system's clock.
    Takeover(Meeting event, std::function<void()> acknowledge, std::function<void()> snooze,
             LinkOpener &opener, const MotionPreference &motion, QObject *parent = nullptr, Clock now = {});

    [[nodiscard]] const Meeting &meeting() const { return m_event; }

    /// Starts the once-per-second redraw and the motion. Before that the view shows the state of the moment
    /// of construction.
    void start();

    /// Opens the join link and acknowledges once the desktop has taken it; a failed open leaves the alert up.
    /// Does nothing while a link is being opened.
    Q_INVOKABLE void join();
    Q_INVOKABLE void acknowledge();
    Q_INVOKABLE void snooze();

    /// The sizes for a window; they depend on the title's length too.
    Q_INVOKABLE [[nodiscard]] TakeoverMetrics metrics(qreal width, qreal height) const;

    /// The title on one line, cut when it is too long for any display to show.
    [[nodiscard]] const QString &title() const { return m_title; }
    [[nodiscard]] QString windowTitle() const;
    [[nodiscard]] QString timeRange() const;
    /// Whether `event` has a link that may be opened.
    [[nodiscard]] bool hasJoinLink() const;

    /// Whether the interface's language runs from right to left.
    [[nodiscard]] bool isMirrored() const;

    /// Whole seconds until the start, rounded up; 0 and below once started.
    [[nodiscard]] qint64 secondsLeft() const { return m_secondsLeft; }
    /// Seconds that the dial shows as ticks, 0 to 60.
    [[nodiscard]] int litTicks() const;
    [[nodiscard]] QString clockText() const;
    [[nodiscard]] QString caption() const;
    [[nodiscard]] QString headline() const;
    [[nodiscard]] QString dialLabel() const;
    /// The colour of urgency.
    [[nodiscard]] QColor tint() const;
    /// What was last to be spoken; empty at first.
    [[nodiscard]] const QString &announcement() const { return m_announcement; }

    /// How full the ring is, 0 to 1: on its way over each second to that second's share of the last minute.
    [[nodiscard]] qreal ringProgress() const;
    /// Phase of the ripples, 0 to 1; negative while there are none.
    [[nodiscard]] qreal ripplePhase() const;
    /// Scale of the breathing glow, 0.92 to 1.08; 0.92 when nothing moves.
    [[nodiscard]] qreal glowScale() const;
    [[nodiscard]] bool isRunning() const { return m_running; }
    [[nodiscard]] bool reduceMotion() const;

Q_SIGNALS:
    void secondsLeftChanged();
    void announcementChanged();
    void ringMoved();
    void glowMoved();
    void runningChanged();
    void reduceMotionChanged();

private:
    void tick();
    void drawFrame();
    void recount();
    void announce();
    void followMotionPreference();
    [[nodiscard]] bool isMoving() const { return m_frameTimer.isActive(); }

    Meeting m_event;
    std::function<void()> m_acknowledge;
    std::function<void()> m_snooze;
    LinkOpener &m_opener;
    const MotionPreference &m_motion;
    Clock m_now;
    QString m_title;
    qsizetype m_titleLength = 0;
    qint64 m_secondsLeft = 0;
    QString m_announcement;
    QTimer m_secondTimer;
    QTimer m_frameTimer;
    double m_startedAt = 0;
    double m_frameTime = 0;
    int m_frame = 0;
    bool m_running = false;
    bool m_opening = false;
};

} // namespace quorvane

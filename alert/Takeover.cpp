// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/Takeover.h"

#include "alert/LinkOpener.h"
#include "alert/MotionPreference.h"
#include "alert/TakeoverPalette.h"
#include "alert/TakeoverText.h"
#include "alert/TitleText.h"
#include "core/Characters.h"
#include "ui/format/MeetingFormat.h"

#include <QDateTime>
#include <QGuiApplication>
#include <QPointer>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <numbers>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

/// The whole alert lives on these few frames per second: drawn by the processor, every frame costs.
constexpr auto frameInterval = 66ms;
/// The glow fills the window and changes by less than one colour level per step at this share of the frames.
constexpr int framesPerGlow = 3;
/// One way of the breath, and one ripple's life.
constexpr double motionPeriod = 2.4;
/// Timers may fire this much early or late; digits must not change before the second is full.
constexpr double timerSlack = 0.002;

double systemTime()
{
    return static_cast<double>(QDateTime::currentMSecsSinceEpoch()) / 1000.0;
}

qint64 wholeSeconds(double seconds)
{
    // Far beyond any meeting, well within 64 bits: a garbage time must not be undefined behaviour.
    constexpr double bound = 1e15;
    return std::isnan(seconds) ? 0 : static_cast<qint64>(std::ceil(std::clamp(seconds, -bound, bound)));
}

} // namespace

Takeover::Takeover(Meeting event, std::function<void()> acknowledge, std::function<void()> snooze,
                   LinkOpener &opener, const MotionPreference &motion, QObject *parent, Clock now)
    : QObject(parent)
    , m_event(std::move(event))
    , m_acknowledge(std::move(acknowledge))
    , m_snooze(std::move(snooze))
    , m_opener(opener)
    , m_motion(motion)
    , m_now(now ? std::move(now) : Clock(systemTime))
    , m_title(TitleText::displayed(m_event.title))
    , m_titleLength(Characters::count(m_title))
{
    m_frameTime = m_now();
    m_secondsLeft = wholeSeconds(m_event.start - m_frameTime);
    m_secondTimer.setSingleShot(true);
    m_secondTimer.setTimerType(Qt::PreciseTimer);
    m_frameTimer.setInterval(frameInterval);
    connect(&m_secondTimer, &QTimer::timeout, this, &Takeover::tick);
    connect(&m_frameTimer, &QTimer::timeout, this, &Takeover::drawFrame);
    connect(&m_motion, &MotionPreference::changed, this, &Takeover::followMotionPreference);
}

void Takeover::start()
{
    if (m_running)
        return;
    m_running = true;
    m_startedAt = m_now();
    Q_EMIT runningChanged();
    followMotionPreference();
    tick();
    if (TakeoverText::isAnnounced(m_secondsLeft + 1, m_secondsLeft))
        announce();
}

void Takeover::tick()
{
    recount();
    // Until the countdown's next full second, whatever the clock did meanwhile.
    const double left = m_event.start - m_now();
    const double wait = std::isfinite(left) ? left - std::floor(left) : 1.0;
    const double delay = (wait > 0 ? wait : 1.0) + timerSlack;
    m_secondTimer.start(std::chrono::milliseconds(std::lround(delay * 1000)));
}

void Takeover::recount()
{
    const qint64 before = m_secondsLeft;
    m_frameTime = m_now();
    m_secondsLeft = wholeSeconds(m_event.start - m_frameTime);
    if (m_secondsLeft == before)
        return;
    Q_EMIT secondsLeftChanged();
    Q_EMIT ringMoved();
    if (TakeoverText::isAnnounced(before, m_secondsLeft))
        announce();
}

void Takeover::announce()
{
    m_announcement = dialLabel();
    Q_EMIT announcementChanged();
}

void Takeover::drawFrame()
{
    recount();
    Q_EMIT ringMoved();
    if (++m_frame % framesPerGlow == 0)
        Q_EMIT glowMoved();
}

void Takeover::followMotionPreference()
{
    if (m_running && !reduceMotion())
        m_frameTimer.start();
    else
        m_frameTimer.stop();
    Q_EMIT reduceMotionChanged();
    Q_EMIT ringMoved();
    Q_EMIT glowMoved();
}

void Takeover::join()
{
    const std::optional<QUrl> link = Meeting::safeJoinURL(m_event.joinURL);
    if (!link || m_opening)
        return;
    m_opening = true;
    m_opener.open(*link, [self = QPointer<Takeover>(this)](bool opened) {
        if (!self)
            return;
        self->m_opening = false;
        if (opened)
            self->acknowledge();
    });
}

void Takeover::acknowledge()
{
    // A copy, because the action may destroy this object.
    const auto action = m_acknowledge;
    if (action)
        action();
}

void Takeover::snooze()
{
    const auto action = m_snooze;
    if (action)
        action();
}

TakeoverMetrics Takeover::metrics(qreal width, qreal height) const
{
    return TakeoverMetrics::of(QSizeF(width, height), m_titleLength);
}

QString Takeover::windowTitle() const
{
    return tr("Meeting alert: %1").arg(m_title);
}

QString Takeover::timeRange() const
{
    return MeetingFormat::timeRange(m_event);
}

bool Takeover::hasJoinLink() const
{
    return Meeting::safeJoinURL(m_event.joinURL).has_value();
}

bool Takeover::isMirrored() const
{
    return QGuiApplication::layoutDirection() == Qt::RightToLeft;
}

int Takeover::litTicks() const
{
    return static_cast<int>(std::clamp<qint64>(m_secondsLeft, 0, 60));
}

QString Takeover::clockText() const
{
    return TakeoverText::clockText(m_secondsLeft);
}

QString Takeover::caption() const
{
    return TakeoverText::caption(m_secondsLeft);
}

QString Takeover::headline() const
{
    return TakeoverText::headline(m_secondsLeft);
}

QString Takeover::dialLabel() const
{
    return TakeoverText::dialLabel(m_secondsLeft);
}

QColor Takeover::tint() const
{
    return TakeoverPalette::tint(m_secondsLeft);
}

qreal Takeover::ringProgress() const
{
    if (m_secondsLeft < 1)
        return 0;
    const double left = m_event.start - m_frameTime;
    const double shown = isMoving() ? left + 1 : static_cast<double>(m_secondsLeft);
    return std::clamp(shown / 60, 0.0, 1.0);
}

qreal Takeover::ripplePhase() const
{
    if (m_secondsLeft > 0 || !isMoving())
        return -1;
    const double turns = (m_frameTime - m_startedAt) / motionPeriod;
    return turns - std::floor(turns);
}

qreal Takeover::glowScale() const
{
    if (!isMoving())
        return 0.92;
    return 1 - 0.08 * std::cos(std::numbers::pi * (m_frameTime - m_startedAt) / motionPeriod);
}

bool Takeover::reduceMotion() const
{
    return m_motion.reduceMotion();
}

} // namespace quorvane

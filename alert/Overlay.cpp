// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/Overlay.h"

#include "alert/ChimePlayer.h"
#include "alert/DisplayWaker.h"
#include "alert/PanelSet.h"

#include <QGuiApplication>
#include <QQmlEngine>
#include <QScreen>

#include <chrono>
#include <utility>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr auto soundInterval = 10s;
/// How long panels built ahead are kept for an alert that does not come (the meeting was called off).
constexpr auto preparedLifetime = 5min;

} // namespace

Overlay::Overlay(OverlayServices services, QObject *parent)
    : QObject(parent)
    , m_services(std::move(services))
{
    m_soundTimer.setTimerType(Qt::PreciseTimer);
    m_soundTimer.setInterval(soundInterval);
    connect(&m_soundTimer, &QTimer::timeout, this, &Overlay::playSound);
    m_preparedTimer.setSingleShot(true);
    m_preparedTimer.setInterval(preparedLifetime);
    connect(&m_preparedTimer, &QTimer::timeout, this, &Overlay::dropPrepared);
    connect(qGuiApp, &QGuiApplication::screenAdded, this, [this](QScreen *screen) { addDisplay(*screen); });
    connect(qGuiApp, &QGuiApplication::screenRemoved, this,
            [this](QScreen *screen) { removeDisplay(*screen); });
}

Overlay::~Overlay()
{
    close();
    // The panels' engine is a member: they must go before it.
    qDeleteAll(findChildren<PanelSet *>(Qt::FindDirectChildrenOnly));
}

void Overlay::show(const Meeting &event, std::function<void()> acknowledge, std::function<void()> snooze)
{
    close();
    m_eventID = event.id;
    m_services.waker.wake();
    m_panels = takePrepared(event);
    if (m_panels == nullptr)
        m_panels = build(event);
    connect(m_panels, &PanelSet::painted, this, &Overlay::painted);
    m_panels->show(std::move(acknowledge), std::move(snooze));
    playSound();
    m_soundTimer.start();
    Q_EMIT eventIDChanged();
}

void Overlay::prepare(const Meeting &event)
{
    if (m_panels != nullptr && m_panels->meeting() == event)
        return;
    PanelSet *prepared = takePrepared(event);
    if (prepared == nullptr) {
        prepared = build(event);
        prepared->drawAhead();
    }
    m_prepared = prepared;
    m_preparedTimer.start();
}

void Overlay::close()
{
    if (m_panels == nullptr)
        return;
    m_soundTimer.stop();
    std::exchange(m_panels, nullptr)->retire();
    m_services.waker.release();
    m_eventID.reset();
    Q_EMIT eventIDChanged();
}

std::vector<MeetingAlertPanel *> Overlay::panels() const
{
    return m_panels != nullptr ? m_panels->panels() : std::vector<MeetingAlertPanel *>{};
}

void Overlay::playSound()
{
    if (m_services.soundEnabled())
        m_services.chime.play(QStringLiteral("Glass"));
}

PanelSet *Overlay::build(const Meeting &event)
{
    if (!m_engine)
        m_engine = std::make_unique<QQmlEngine>();
    auto *panels =
        new PanelSet(event, *m_engine, m_services.placement, m_services.opener, m_services.motion, this);
    panels->build(QGuiApplication::screens());
    return panels;
}

PanelSet *Overlay::takePrepared(const Meeting &event)
{
    if (m_prepared == nullptr)
        return nullptr;
    if (m_prepared->meeting() == event && m_prepared->covers(QGuiApplication::screens())) {
        m_preparedTimer.stop();
        return std::exchange(m_prepared, nullptr);
    }
    dropPrepared();
    return nullptr;
}

void Overlay::dropPrepared()
{
    m_preparedTimer.stop();
    if (m_prepared != nullptr)
        std::exchange(m_prepared, nullptr)->retire();
}

void Overlay::addDisplay(QScreen &screen)
{
    if (m_panels != nullptr)
        m_panels->add(screen);
}

void Overlay::removeDisplay(const QScreen &screen)
{
    if (m_prepared != nullptr)
        m_prepared->remove(screen);
    if (m_panels != nullptr)
        m_panels->remove(screen);
}

} // namespace quorvane

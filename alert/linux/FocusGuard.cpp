// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/FocusGuard.h"

#include "alert/MeetingAlertPanel.h"

#include <QGuiApplication>

#include <chrono>
#include <utility>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr int quickAttempts = 20;
/// After those, so as not to fight endlessly with a program that wants the keyboard as badly, and not to give
/// up.
constexpr auto patientTime = 3s;
/// A window that has just lost the keyboard may be about to have it again.
constexpr auto settlingTime = 40ms;
/// How long a display server may take to grant the keyboard.
constexpr auto grantingTime = 150ms;

bool panelHasKeyboard()
{
    return qobject_cast<MeetingAlertPanel *>(QGuiApplication::focusWindow()) != nullptr;
}

} // namespace

FocusGuard::FocusGuard(std::function<void()> reclaim, QObject *parent)
    : QObject(parent)
    , m_reclaim(std::move(reclaim))
{
    m_checkTimer.setSingleShot(true);
    connect(&m_checkTimer, &QTimer::timeout, this, &FocusGuard::check);
    const auto checkSoon = [this] {
        if (m_isOnGuard && !m_checkTimer.isActive())
            m_checkTimer.start(m_quickAttemptsLeft > 0 ? std::chrono::milliseconds(settlingTime)
                                                       : patientTime);
    };
    connect(qGuiApp, &QGuiApplication::focusWindowChanged, this, checkSoon);
    connect(&m_lock, &SessionLock::changed, this, checkSoon);
    connect(&m_overview, &ShellOverview::entered, this, [this] {
        if (m_isOnGuard)
            m_overview.leave();
    });
}

void FocusGuard::start()
{
    m_isOnGuard = true;
    m_quickAttemptsLeft = quickAttempts;
    m_checkTimer.start(grantingTime);
    // To an X client an overview looks as if it had not taken the keyboard.
    m_overview.leave();
}

void FocusGuard::stop()
{
    m_isOnGuard = false;
    m_checkTimer.stop();
}

void FocusGuard::check()
{
    if (!m_isOnGuard || m_lock.isLocked() || panelHasKeyboard())
        return;
    if (m_quickAttemptsLeft > 0)
        --m_quickAttemptsLeft;
    m_checkTimer.start(m_quickAttemptsLeft > 0 ? std::chrono::milliseconds(grantingTime) : patientTime);
    m_overview.leave();
    m_reclaim();
}

} // namespace quorvane

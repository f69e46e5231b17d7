// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/FrameSettler.h"

#include <QEvent>
#include <QWindow>

#include <chrono>
#include <utility>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

/// A compositor that has not asked for a frame by then will not: the window is covered or its display is
/// dark.
constexpr auto patience = 250ms;
/// Qt delivers the first update after the frame callback was taken in. Asking for the second one takes the
/// lock that Qt's thread held meanwhile, so with its delivery that thread is through with the window.
constexpr int updatesUntilSettled = 2;

} // namespace

void FrameSettler::whenSettled(QWindow &window, std::function<void()> action)
{
    auto *settler = window.findChild<FrameSettler *>({}, Qt::FindDirectChildrenOnly);
    if (settler == nullptr)
        settler = new FrameSettler(window);
    settler->m_action = std::move(action);
}

FrameSettler::FrameSettler(QWindow &window)
    : QObject(&window)
    , m_window(window)
    , m_updatesToCome(updatesUntilSettled)
{
    m_finishTimer.setSingleShot(true);
    connect(&m_finishTimer, &QTimer::timeout, this, &FrameSettler::finish);
    window.installEventFilter(this);
    const bool isDrawn = window.handle() != nullptr && window.isExposed();
    m_finishTimer.start(isDrawn ? patience : 0ms);
    if (isDrawn)
        window.requestUpdate();
}

bool FrameSettler::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != &m_window)
        return false;
    if (event->type() == QEvent::UpdateRequest) {
        noteUpdate();
        return true;
    }
    if (event->type() != QEvent::Expose && event->type() != QEvent::Paint)
        return event->isInputEvent();
    // Qt has given up waiting for the compositor.
    if (!m_window.isExposed())
        m_finishTimer.start(0ms);
    return true;
}

void FrameSettler::noteUpdate()
{
    --m_updatesToCome;
    // This is called from inside the Wayland window, which the action may destroy.
    if (m_updatesToCome <= 0)
        m_finishTimer.start(0ms);
    else
        m_window.requestUpdate();
}

void FrameSettler::finish()
{
    const std::function<void()> action = std::exchange(m_action, {});
    m_window.removeEventFilter(this);
    // The action may ask for the window to settle again.
    setParent(nullptr);
    deleteLater();
    action();
}

} // namespace quorvane

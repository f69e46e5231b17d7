// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/PanelSet.h"

#include "alert/MeetingAlertPanel.h"
#include "alert/TakeoverView.h"

#include <QGuiApplication>
#include <QScreen>

#include <algorithm>
#include <utility>

namespace quorvane {

PanelSet::PanelSet(const Meeting &event, QQmlEngine &engine, PanelPlacement &placement, LinkOpener &opener,
                   const MotionPreference &motion, QObject *parent)
    : QObject(parent)
    , m_engine(engine)
    , m_placement(placement)
    , m_takeover(event, [this] { answer(m_acknowledge); }, [this] { answer(m_snooze); }, opener, motion)
{
}

PanelSet::~PanelSet()
{
    takeDown();
    for (MeetingAlertPanel *panel : std::exchange(m_discarded, {})) {
        panel->disconnect(this);
        delete panel;
    }
}

bool PanelSet::covers(const QList<QScreen *> &screens) const
{
    return std::ranges::equal(m_places, screens, {}, &Place::screen);
}

void PanelSet::build(const QList<QScreen *> &screens)
{
    for (QScreen *screen : screens) {
        auto *panel = new MeetingAlertPanel(m_engine, m_takeover, TakeoverView::source());
        m_places.push_back({.screen = screen, .panel = panel});
        connect(panel, &QQuickWindow::frameSwapped, this, [this, panel] { notePainted(*panel); });
        m_placement.prepare(*panel, *screen);
    }
    sortByDisplay();
}

void PanelSet::drawAhead()
{
    // Other backends cannot draw a window that is not on screen.
    if (QQuickWindow::sceneGraphBackend() != QLatin1StringView("software"))
        return;
    for (const Place &place : m_places) {
        const auto draw = [panel = place.panel] {
            if (!panel->isVisible())
                panel->grabWindow();
        };
        QMetaObject::invokeMethod(place.panel, draw, Qt::QueuedConnection);
    }
}

void PanelSet::show(std::function<void()> acknowledge, std::function<void()> snooze)
{
    m_acknowledge = std::move(acknowledge);
    m_snooze = std::move(snooze);
    m_isShowing = true;
    m_takeover.start();

    // The main display comes last, so that no later panel takes the keyboard from it.
    QList<QScreen *> screens;
    for (const Place &place : m_places)
        screens.append(place.screen);
    std::ranges::stable_partition(
        screens, [](const QScreen *screen) { return screen != QGuiApplication::primaryScreen(); });
    for (QScreen *screen : std::as_const(screens))
        showOn(*screen);
    giveKeyboardToSomePanel();
}

void PanelSet::add(QScreen &screen)
{
    if (place(screen) != nullptr)
        return;
    build({&screen});
    showOn(screen);
    giveKeyboardToSomePanel();
}

void PanelSet::remove(const QScreen &screen)
{
    const auto gone = std::ranges::find(m_places, &screen, &Place::screen);
    if (gone == m_places.end())
        return;
    MeetingAlertPanel *panel = gone->panel;
    m_places.erase(gone);
    discard(*panel);
    giveKeyboardToSomePanel();
    announceWhenPainted();
}

void PanelSet::takeDown()
{
    m_isShowing = false;
    m_acknowledge = {};
    m_snooze = {};
    const std::vector<Place> places = std::exchange(m_places, {});
    for (const Place &place : places)
        discard(*place.panel);
}

void PanelSet::retire()
{
    takeDown();
    m_isRetired = true;
    if (m_discarded.empty())
        deleteLater();
}

std::vector<MeetingAlertPanel *> PanelSet::panels() const
{
    std::vector<MeetingAlertPanel *> panels;
    std::ranges::transform(m_places, std::back_inserter(panels), &Place::panel);
    return panels;
}

PanelSet::Place *PanelSet::place(const QScreen &screen)
{
    const auto found = std::ranges::find(m_places, &screen, &Place::screen);
    return found == m_places.end() ? nullptr : &*found;
}

void PanelSet::sortByDisplay()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    std::ranges::stable_sort(m_places, {},
                             [&screens](const Place &place) { return screens.indexOf(place.screen); });
}

void PanelSet::showOn(QScreen &screen)
{
    const bool isPrimary = &screen == QGuiApplication::primaryScreen() && m_keyboardPanel == nullptr;
    MeetingAlertPanel *panel = place(screen)->panel;
    if (!m_placement.show(*panel, screen, isPrimary ? KeyboardRole::primary : KeyboardRole::none)) {
        remove(screen);
        return;
    }
    if (isPrimary)
        m_keyboardPanel = panel;
}

void PanelSet::giveKeyboardToSomePanel()
{
    if (!m_isShowing || m_keyboardPanel != nullptr || m_places.empty())
        return;
    QScreen *primary = QGuiApplication::primaryScreen();
    const Place *chosen = primary != nullptr ? place(*primary) : nullptr;
    MeetingAlertPanel *panel = chosen != nullptr ? chosen->panel : m_places.front().panel;
    m_keyboardPanel = panel;
    m_placement.takeKeyboard(*panel);
}

void PanelSet::notePainted(const MeetingAlertPanel &panel)
{
    const auto painted = std::ranges::find(m_places, &panel, &Place::panel);
    if (!m_isShowing || m_isPainted || painted == m_places.end())
        return;
    painted->isPainted = true;
    announceWhenPainted();
}

void PanelSet::announceWhenPainted()
{
    if (!m_isShowing || m_isPainted || m_places.empty() || !std::ranges::all_of(m_places, &Place::isPainted))
        return;
    m_isPainted = true;
    Q_EMIT painted();
}

void PanelSet::discard(MeetingAlertPanel &panel)
{
    if (m_keyboardPanel == &panel)
        m_keyboardPanel = nullptr;
    panel.disconnect(this);
    m_discarded.push_back(&panel);
    connect(&panel, &QObject::destroyed, this, [this, panel = &panel] {
        std::erase(m_discarded, panel);
        if (m_isRetired && m_discarded.empty())
            deleteLater();
    });
    m_placement.remove(panel);
}

void PanelSet::answer(const std::function<void()> &action) const
{
    // The action closes the alert and thereby empties the member it was kept in.
    const std::function<void()> kept = action;
    if (kept)
        kept();
}

} // namespace quorvane

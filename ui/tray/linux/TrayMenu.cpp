// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/TrayMenu.h"

#include "ui/tray/MenuContent.h"
#include "ui/tray/linux/TrayLabel.h"

#include <QAction>
#include <QApplication>
#include <QPalette>

#include <algorithm>
#include <ranges>

namespace quorvane {

namespace {

MenuEntry::Kind kindOf(const QAction &action)
{
    if (action.isSeparator())
        return MenuEntry::Kind::separator;
    return action.isEnabled() ? MenuEntry::Kind::command : MenuEntry::Kind::text;
}

/// Nearer to the first one, so that usual colours keep a contrast of more than 5 to 1.
QColor between(const QColor &text, const QColor &ground)
{
    const auto mixed = [](int near, int far) { return (near * 7 + far * 3) / 10; };
    return {mixed(text.red(), ground.red()), mixed(text.green(), ground.green()),
            mixed(text.blue(), ground.blue())};
}

} // namespace

TrayMenu::TrayMenu(MenuContent &content, TrayKind kind)
    : m_content(content)
    , m_kind(kind)
{
    connect(&content, &MenuContent::changed, this, &TrayMenu::update);
    connect(&m_menu, &QMenu::triggered, this,
            [this](const QAction *action) { m_content.perform(action->data().value<MenuCommand>()); });
    if (kind == TrayKind::embedded)
        connect(&m_menu, &QMenu::aboutToShow, this, &TrayMenu::makeReadable);
    update();
}

// What cannot be chosen is there to be read, but styles fade it. Upon each opening, since the desktop may
// have become dark.
void TrayMenu::makeReadable()
{
    const QPalette usual = QApplication::palette(&m_menu);
    QPalette palette;
    for (const auto role : {QPalette::Text, QPalette::WindowText, QPalette::ButtonText})
        palette.setColor(
            QPalette::Disabled, role,
            between(usual.color(QPalette::Active, role), usual.color(QPalette::Active, QPalette::Window)));
    m_menu.setPalette(palette);
}

void TrayMenu::update()
{
    const MenuEntries &wanted = m_content.entries();
    fitKinds(wanted);
    const QList<QAction *> actions = m_menu.actions();
    for (std::size_t i = 0; i < wanted.size(); ++i)
        fill(*actions[static_cast<qsizetype>(i)], wanted[i]);
}

// What is alike at the beginning and at the end stays.
void TrayMenu::fitKinds(const MenuEntries &wanted)
{
    const auto isAlike = [](const QAction *action, const MenuEntry &entry) {
        return kindOf(*action) == entry.kind;
    };
    const QList<QAction *> shown = m_menu.actions();
    const auto front = std::ranges::mismatch(shown, wanted, isAlike);
    const std::ranges::subrange shownRest(front.in1, shown.end());
    const std::ranges::subrange wantedRest(front.in2, wanted.end());
    const auto back =
        std::ranges::mismatch(shownRest | std::views::reverse, wantedRest | std::views::reverse, isAlike);
    const auto kept = back.in1.base();
    QAction *const before = kept == shown.end() ? nullptr : *kept;
    for (QAction *action : std::ranges::subrange(front.in1, kept))
        delete action;
    for (const MenuEntry &entry : std::ranges::subrange(front.in2, back.in2.base()))
        m_menu.insertAction(before, made(entry));
}

QAction *TrayMenu::made(const MenuEntry &entry)
{
    auto *action = new QAction(&m_menu);
    action->setSeparator(entry.kind == MenuEntry::Kind::separator);
    action->setEnabled(entry.kind != MenuEntry::Kind::text);
    fill(*action, entry);
    return action;
}

void TrayMenu::fill(QAction &action, const MenuEntry &entry) const
{
    action.setText(TrayLabel::of(entry.text, m_kind));
    action.setData(QVariant::fromValue(entry.command));
}

} // namespace quorvane

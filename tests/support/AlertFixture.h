// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/ChimePlayer.h"
#include "alert/DisplayWaker.h"
#include "alert/LinkOpener.h"
#include "alert/MeetingAlertPanel.h"
#include "alert/MotionPreference.h"
#include "alert/Overlay.h"
#include "alert/PanelPlacement.h"

#include <QScreen>

namespace quorvane {

/// Shows panels as plain windows, which is all that the offscreen platform can do.
class PlainPlacement final : public PanelPlacement
{
public:
    void prepare(MeetingAlertPanel &panel, QScreen &screen) override { panel.setGeometry(screen.geometry()); }
    bool show(MeetingAlertPanel &panel, QScreen &screen, KeyboardRole) override
    {
        panel.setGeometry(screen.geometry());
        panel.show();
        return true;
    }
    void takeKeyboard(MeetingAlertPanel &panel) override { panel.requestActivate(); }
    void remove(MeetingAlertPanel &panel) override
    {
        panel.hide();
        panel.deleteLater();
    }
};

class CountingChime final : public ChimePlayer
{
public:
    void play(const QString &name) override { played.append(name); }
    QStringList played;
};

class IdleWaker final : public DisplayWaker
{
public:
    void wake() override {}
    void release() override {}
};

class AnsweringOpener final : public LinkOpener
{
public:
    void open(const QUrl &link, std::function<void(bool)> done) override
    {
        opened.append(link);
        done(answer);
    }
    QList<QUrl> opened;
    bool answer = true;
};

class StillMotion final : public MotionPreference
{
    Q_OBJECT

public:
    [[nodiscard]] bool reduceMotion() const override { return true; }
};

/// A real overlay on the offscreen platform.
struct AlertFixture
{
    PlainPlacement placement;
    CountingChime chime;
    IdleWaker waker;
    AnsweringOpener opener;
    StillMotion motion;
    bool soundEnabled = true;
    Overlay overlay{{placement, chime, waker, opener, motion, [this] { return soundEnabled; }}};
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewPictures.h"

#include "alert/LinkOpener.h"
#include "alert/MotionPreference.h"
#include "alert/Takeover.h"
#include "alert/TakeoverView.h"
#include "app/PreviewStage.h"
#include "model/AppModel.h"
#include "ui/components/Appearance.h"
#include "ui/components/ComponentsModule.h"
#include "ui/dashboard/DashboardView.h"

#include <QEventLoop>
#include <QQmlEngine>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane::PreviewPictures {

namespace {

// Half of the glow's breath, in seconds: its middle size.
constexpr double halfBreath = 1.2;
constexpr std::chrono::seconds longestFrame{5};

class NoOpener final : public LinkOpener
{
public:
    void open(const QUrl &, std::function<void(bool)> done) override { done(false); }
};

class FullMotion final : public MotionPreference
{
public:
    [[nodiscard]] bool reduceMotion() const override { return false; }
};

QVariantMap property(const QString &name, QObject &object)
{
    return {{name, QVariant::fromValue(&object)}};
}

void fillSheet(Dashboard &dashboard, PreviewScenes::WindowScene::Sheet state)
{
    using Sheet = PreviewScenes::WindowScene::Sheet;
    if (state == Sheet::closed)
        return;
    dashboard.openSheet();
    if (state == Sheet::empty)
        return;
    MeetingForm &form = *dashboard.sheet();
    form.setTitle(u"Call the school about Thursday"_s);
    form.setLink(state == Sheet::filled ? u"https://meet.northwind.dev/school"_s : u"zoom/j/8812"_s);
    form.leaveLink();
}

/// Until the alert's own frames have met the clock.
void awaitGlow(Takeover &takeover)
{
    QEventLoop loop;
    QObject::connect(&takeover, &Takeover::glowMoved, &loop, &QEventLoop::quit);
    QTimer::singleShot(longestFrame, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

Result<QImage> window(AppModel &model, const PreviewScenes::WindowScene &scene)
{
    model.showPreview(scene.content);
    Appearance appearance(nullptr);
    appearance.setReduceMotion(true);
    appearance.startDark(scene.theme == PreviewScenes::WindowScene::Theme::dark);
    PreviewUpdates updates(scene.updates);
    Dashboard dashboard(model, &updates);
    dashboard.setSection(scene.section);
    fillSheet(dashboard, scene.sheet);
    QQmlEngine engine;
    ComponentsModule::install(engine, appearance);
    DashboardView::registerTypes();
    return PreviewStage::picture(engine, DashboardView::source(), property(u"dashboard"_s, dashboard),
                                 scene.size);
}

Result<QImage> alert(const PreviewScenes::AlertScene &scene)
{
    Meeting meeting{.title = scene.title, .start = PreviewScenes::moment()};
    meeting.end = meeting.start + 1800;
    if (scene.hasLink)
        meeting.joinURL = u"https://meet.google.com/abc-defg-hij"_s;
    // The dial shows the end of the first second.
    const double shown = meeting.start - scene.secondsLeft + 0.998;
    double clock = shown - halfBreath;
    NoOpener opener;
    FullMotion motion;
    Takeover takeover(meeting, {}, {}, opener, motion, nullptr, [&clock] { return clock; });
    TakeoverView::registerTypes();
    QQmlEngine engine;
    takeover.start();
    clock = shown;
    awaitGlow(takeover);
    QVariantMap properties = property(u"takeover"_s, takeover);
    properties.insert(u"keysUsed"_s, scene.focus == PreviewScenes::AlertScene::Focus::shown);
    return PreviewStage::picture(engine, TakeoverView::source(), properties, scene.size);
}

} // namespace quorvane::PreviewPictures

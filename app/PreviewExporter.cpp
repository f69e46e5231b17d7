// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewExporter.h"

#include "alert/LinkOpener.h"
#include "alert/MotionPreference.h"
#include "alert/Takeover.h"
#include "alert/TakeoverView.h"
#include "app/PreviewError.h"
#include "app/PreviewScenes.h"
#include "app/PreviewStage.h"
#include "app/QuorvaneApp.h"
#include "ui/components/Appearance.h"
#include "ui/components/ComponentsModule.h"
#include "ui/dashboard/DashboardView.h"

#include <QDir>
#include <QEventLoop>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>

#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane::PreviewExporter {

namespace {

// Half of the glow's breath, in seconds: its middle size.
constexpr double halfBreath = 1.2;
constexpr std::chrono::seconds longestFrame{5};
/// Qt's scale of quality, which for PNG is the compression turned around.
constexpr int smallestFile = 0;

class StoppedClock final : public Clock
{
public:
    [[nodiscard]] double now() const override { return PreviewScenes::moment(); }
};

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

Result<QImage> picture(AppModel &model, const PreviewScenes::WindowScene &scene)
{
    model.showPreview(scene.content);
    Appearance appearance(nullptr);
    appearance.setReduceMotion(true);
    appearance.startDark(scene.theme == PreviewScenes::WindowScene::Theme::dark);
    Dashboard dashboard(model, nullptr);
    dashboard.setSection(scene.section);
    fillSheet(dashboard, scene.sheet);
    QQmlEngine engine;
    ComponentsModule::install(engine, appearance);
    DashboardView::registerTypes();
    return PreviewStage::picture(engine, DashboardView::source(), property(u"dashboard"_s, dashboard),
                                 scene.size);
}

/// Until the alert's own frames have met the clock.
void awaitGlow(Takeover &takeover)
{
    QEventLoop loop;
    QObject::connect(&takeover, &Takeover::glowMoved, &loop, &QEventLoop::quit);
    QTimer::singleShot(longestFrame, &loop, &QEventLoop::quit);
    loop.exec();
}

Result<QImage> picture(const PreviewScenes::AlertScene &scene)
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

Result<void> write(const QDir &folder, const QString &name, const Result<QImage> &image)
{
    if (!image)
        return Failure(image.error());
    if (!image->save(folder.filePath(name + u".png"_s), "PNG", smallestFile))
        return Failure(make_error_code(PreviewError::writeFailed));
    return {};
}

} // namespace

void prepare()
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("TZ", "UTC");
    for (const char *variable : {"LC_ALL", "LANG", "LANGUAGE"})
        qputenv(variable, "C.UTF-8");
    for (const char *variable :
         {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI", "QT_QUICK_BACKEND"})
        qunsetenv(variable);
    QQuickWindow::setSceneGraphBackend(u"software"_s);
}

Result<void> exportTo(const QString &folder)
{
    if (!QDir().mkpath(folder))
        return Failure(make_error_code(PreviewError::folderUnavailable));
    const StoppedClock clock;
    QuorvaneApp app({u"--preview"_s}, QProcessEnvironment::systemEnvironment(), clock);
    for (const PreviewScenes::WindowScene &scene : PreviewScenes::window()) {
        if (const auto written = write(folder, scene.name, picture(app.model(), scene)); !written)
            return written;
    }
    for (const PreviewScenes::AlertScene &scene : PreviewScenes::alert()) {
        if (const auto written = write(folder, scene.name, picture(scene)); !written)
            return written;
    }
    return {};
}

} // namespace quorvane::PreviewExporter

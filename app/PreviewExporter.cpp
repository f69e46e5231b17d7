// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewExporter.h"

#include "app/PreviewError.h"
#include "app/PreviewPictures.h"
#include "app/PreviewScenes.h"
#include "app/QuorvaneApp.h"
#include "app/VersionStart.h"
#include "instance/linux/SessionBusProbe.h"

#include <QDir>
#include <QQuickWindow>

using namespace Qt::StringLiterals;

namespace quorvane::PreviewExporter {

namespace {

/// Qt's scale of quality, which for PNG is the compression turned around.
constexpr int smallestFile = 0;

class StoppedClock final : public Clock
{
public:
    [[nodiscard]] double now() const override { return PreviewScenes::moment(); }
};

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
    for (const char *variable : {"QT_SCALE_FACTOR", "QT_SCREEN_SCALE_FACTORS", "QT_FONT_DPI",
                                 "QT_QUICK_BACKEND", "QT_QPA_PLATFORMTHEME"})
        qunsetenv(variable);
    doWithoutSessionBus(); // a picture needs nobody's answer, and one that hangs would be waited for
    QQuickWindow::setSceneGraphBackend(u"software"_s);
}

Result<void> exportTo(const QString &folder)
{
    if (!QDir().mkpath(folder))
        return Failure(make_error_code(PreviewError::folderUnavailable));
    const StoppedClock clock;
    VersionStart start;
    QuorvaneApp app({u"--preview"_s}, QProcessEnvironment::systemEnvironment(), clock, start);
    for (const PreviewScenes::WindowScene &scene : PreviewScenes::window()) {
        if (const auto written = write(folder, scene.name, PreviewPictures::window(app.model(), scene));
            !written)
            return written;
    }
    for (const PreviewScenes::AlertScene &scene : PreviewScenes::alert()) {
        if (const auto written = write(folder, scene.name, PreviewPictures::alert(scene)); !written)
            return written;
    }
    return {};
}

} // namespace quorvane::PreviewExporter

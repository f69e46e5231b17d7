// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/SelfTest.h"

#include "app/InformationDictionary.h"
#include "app/PreviewExporter.h"
#include "app/PreviewPictures.h"
#include "app/ProgramResources.h"
#include "app/QuorvaneApp.h"
#include "app/VersionStart.h"
#include "calendars/FantasticalReader.h"
#include "calendars/records/FantasticalReadError.h"
#include "model/linux/SystemClock.h"
#include "process/linux/PosixProcessRunner.h"

#include <QFileInfo>
#include <QFontDatabase>

#include <algorithm>
#include <chrono>

using namespace Qt::StringLiterals;

namespace quorvane::SelfTest {

namespace {

using Fault = std::optional<QString>;

/// Where nobody, not even root, has or can make a file.
constexpr const char *nowhere = "/dev/null/nowhere";
constexpr std::chrono::seconds helperTime{5};
/// From here on it is not the program itself that has chosen its exit status.
constexpr int firstStatusOfLoaders = 126;

InformationDictionary information(const QString &programFolder)
{
    return InformationDictionary::read(ProgramResources::informationDictionary(programFolder));
}

Fault faultOfInformation(const QString &programFolder)
{
    const InformationDictionary found = information(programFolder);
    if (found.shortVersion && found.buildNumber)
        return std::nullopt;
    return u"The file info.json, which says what version this is, is missing or damaged."_s;
}

/// By having it look for a cache that is not there, which it has a word for.
Fault faultOfReader(const QString &programFolder)
{
    const FantasticalReader reader({
        .program = [&programFolder] { return ProgramResources::calendarReader(programFolder); },
        .home = QString::fromLatin1(nowhere),
        .folder = [&programFolder] { return programFolder; },
        .runner = std::make_shared<PosixProcessRunner>(),
        .timeLimit = helperTime,
    });
    const Result<FantasticalSnapshot> answer = QCoro::waitFor(reader.read(QStringList()));
    const std::error_code said = answer ? std::error_code() : answer.error();
    if (said == FantasticalReadError::databaseUnavailable)
        return std::nullopt;
    if (said == FantasticalReadError::helperMissing)
        return u"The calendar reader is missing."_s;
    return u"The calendar reader does not work on this machine."_s;
}

/// By having it look for an archive that is not there: it fails by itself, and nothing else makes it fail.
Fault faultOfUnpacker(const QString &programFolder)
{
    const QFileInfo unpacker(ProgramResources::updateUnpacker(programFolder));
    if (!unpacker.isFile() || !unpacker.isExecutable())
        return u"The program that unpacks updates is missing."_s;
    const QString missing = QString::fromLatin1(nowhere);
    const Result<ProcessOutcome> outcome = PosixProcessRunner().run(
        {.program = unpacker.filePath(), .arguments = {missing, missing}, .timeLimit = helperTime});
    if (outcome && outcome->exitStatus > 0 && outcome->exitStatus < firstStatusOfLoaders)
        return std::nullopt;
    return u"The program that unpacks updates does not work on this machine."_s;
}

/// Letters alone are more than two colours.
bool showsSomething(const QImage &image)
{
    constexpr int colours = 16;
    QList<QRgb> seen;
    for (int y = 0; y < image.height() && seen.size() < colours; ++y) {
        for (int x = 0; x < image.width() && seen.size() < colours; ++x) {
            if (!seen.contains(image.pixel(x, y)))
                seen.append(image.pixel(x, y));
        }
    }
    return seen.size() == colours;
}

Fault faultOfViews()
{
    if (QFontDatabase::families().isEmpty())
        return u"No font is installed."_s;
    const Result<QImage> alert = PreviewPictures::alert(PreviewScenes::alert().front());
    if (!alert || !showsSomething(*alert))
        return u"The alert cannot be drawn: a part of Qt Quick is missing."_s;
    const SystemClock clock;
    VersionStart start;
    QuorvaneApp app({u"--preview"_s}, QProcessEnvironment::systemEnvironment(), clock, start);
    const Result<QImage> window = PreviewPictures::window(app.model(), PreviewScenes::window().front());
    if (!window || !showsSomething(*window))
        return u"The window cannot be drawn: a part of Qt Quick is missing."_s;
    return std::nullopt;
}

} // namespace

void prepare()
{
    PreviewExporter::prepare();
    for (const char *folder :
         {"HOME", "XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_STATE_HOME", "XDG_CACHE_HOME", "XDG_RUNTIME_DIR"})
        qputenv(folder, nowhere);
    for (const char *bus : {"DBUS_SESSION_BUS_ADDRESS", "DBUS_SYSTEM_BUS_ADDRESS"})
        qputenv(bus, QByteArray("unix:path=") + nowhere);
    for (const char *variable : {"DISPLAY", "WAYLAND_DISPLAY", "QT_QPA_PLATFORMTHEME", "QT_IM_MODULE"})
        qunsetenv(variable);
    qputenv("GSETTINGS_BACKEND", "memory");
    qputenv("QML_DISABLE_DISK_CACHE", "1");
}

Fault fault(const QString &programFolder)
{
    if (const Fault found = faultOfInformation(programFolder))
        return found;
    if (const Fault found = faultOfReader(programFolder))
        return found;
    if (const Fault found = faultOfUnpacker(programFolder))
        return found;
    return faultOfViews();
}

QString version(const QString &programFolder)
{
    const InformationDictionary found = information(programFolder);
    return u"Quorvane %1 (%2)"_s.arg(*found.shortVersion, *found.buildNumber);
}

} // namespace quorvane::SelfTest

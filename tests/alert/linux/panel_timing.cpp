// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Prints how long an alert takes from the call until all its panels are painted: the first one of the
// process, cold ones and prepared ones. With the argument "hold" it shows one alert until that is answered.
// Run by tools/desktop/run.
#include "alert/linux/DesktopPlatform.h"
#include "tests/support/AlertFixture.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>
#include <cstdio>

using namespace quorvane;

namespace {

enum class Start { cold, prepared };

Meeting soonMeeting()
{
    const double now = static_cast<double>(QDateTime::currentSecsSinceEpoch());
    return {.id = QStringLiteral("id"),
            .title = QStringLiteral("Weekly design review"),
            .start = now + 60,
            .end = now + 1860,
            .joinURL = QStringLiteral("https://meet.example.org/review")};
}

double milliseconds(Overlay &overlay, Start start)
{
    const Meeting meeting = soonMeeting();
    if (start == Start::prepared) {
        overlay.prepare(meeting);
        QTest::qWait(200);
    }
    QSignalSpy painted(&overlay, &Overlay::painted);
    QElapsedTimer timer;
    timer.start();
    overlay.show(meeting, [] {}, [] {});
    if (painted.isEmpty())
        painted.wait();
    const double took = static_cast<double>(timer.nsecsElapsed()) / 1e6;
    QTest::qWait(200);
    overlay.close();
    QTest::qWait(100);
    return took;
}

void report(const char *name, Overlay &overlay, Start start)
{
    constexpr int rounds = 30;
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round)
        times.push_back(milliseconds(overlay, start));
    std::ranges::sort(times);
    std::printf("%-10s median %.1f ms, longest %.1f ms\n", name, times[rounds / 2], times.back());
}

} // namespace

int main(int argc, char **argv)
{
    preparePlatform();
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const auto placement = choosePlacement();
    CountingChime chime;
    IdleWaker waker;
    AnsweringOpener opener;
    StillMotion motion;
    Overlay overlay({*placement, chime, waker, opener, motion, [] { return true; }});
    QTest::qWait(300);
    if (QGuiApplication::arguments().contains(QStringLiteral("hold"))) {
        overlay.show(soonMeeting(), [] { QCoreApplication::exit(); }, [] { QCoreApplication::exit(); });
        return QGuiApplication::exec();
    }
    std::printf("%d displays on %s\n", int(QGuiApplication::screens().size()),
                qPrintable(QGuiApplication::platformName()));
    std::printf("%-10s %.1f ms\n", "first", milliseconds(overlay, Start::cold));
    report("cold", overlay, Start::cold);
    report("prepared", overlay, Start::prepared);
    return 0;
}

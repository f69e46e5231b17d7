// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the dashboard's window costs: opening_window MEETINGS TIMES prints, as JSON, the milliseconds until it
// was painted and the proportional memory in kB before, while and after it was open, for each time it is
// opened.
#include "alert/linux/DesktopPlatform.h"
#include "bench/TeamMeeting.h"
#include "posix/UnusedMemory.h"
#include "tests/support/ModelFixture.h"
#include "ui/components/Appearance.h"
#include "ui/dashboard/DashboardWindow.h"

#include <QElapsedTimer>
#include <QGuiApplication>
#include <QTimer>

#include <cstdio>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr int calmMilliseconds = 700;

int proportionalMemory()
{
    QFile file(u"/proc/self/smaps_rollup"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray &line : file.readAll().split('\n')) {
        if (line.startsWith("Pss:"))
            return line.mid(4).chopped(3).trimmed().toInt();
    }
    return 0;
}

PreviewContent busyDays(int meetings, double now)
{
    PreviewContent content;
    for (int i = 0; i < meetings; ++i)
        content.calendarEvents.push_back(teamMeeting(i, now + 600 + i * 14.0 * 86400 / meetings));
    content.meetings = content.calendarEvents;
    return content;
}

void rest(int milliseconds)
{
    QEventLoop loop;
    QTimer::singleShot(milliseconds, &loop, &QEventLoop::quit);
    loop.exec();
}

/// Runs until the signal comes, or ten seconds.
template<class Signal>
void await(DashboardWindow &window, Signal signal)
{
    QEventLoop loop;
    QObject::connect(&window, signal, &loop, &QEventLoop::quit);
    QTimer::singleShot(10'000, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

int main(int argc, char *argv[])
{
    preparePlatform();
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QCoreApplication::arguments();

    ModelFixture fixture;
    fixture.start(AppModel::Mode::preview);
    fixture.model->showPreview(busyDays(arguments.value(1, u"2000"_s).toInt(), fixture.clock.now()));
    Appearance appearance(nullptr);
    DashboardWindow window(*fixture.model, appearance, nullptr,
                           [](QWindow &shown, const std::function<void()> &action) {
                               QMetaObject::invokeMethod(&shown, action, Qt::QueuedConnection);
                           });
    QObject::connect(&window, &DashboardWindow::closed, &returnUnusedMemory);
    std::printf("[");
    const int times = arguments.value(2, u"5"_s).toInt();
    for (int i = 0; i < times; ++i) {
        rest(calmMilliseconds);
        const int before = proportionalMemory();
        QElapsedTimer timer;
        timer.start();
        window.open();
        await(window, &DashboardWindow::painted);
        const double painted = static_cast<double>(timer.nsecsElapsed()) / 1e6;
        rest(calmMilliseconds);
        const int open = proportionalMemory();
        window.close();
        await(window, &DashboardWindow::closed);
        rest(calmMilliseconds);
        std::printf("%s{\"painted\": %.1f, \"before\": %d, \"open\": %d, \"after\": %d}", i == 0 ? "" : ", ",
                    painted, before, open, proportionalMemory());
        std::fflush(stdout);
    }
    std::printf("]\n");
    return 0;
}

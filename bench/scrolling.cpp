// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later
//
// What the agenda costs: scrolling [MEETINGS] prints, as JSON, the milliseconds of processor time that a
// frame of scrolling takes with that many meetings and with ten, a refresh that brings one more, and a second
// that only passes.
#include "bench/TeamMeeting.h"
#include "tests/support/ModelFixture.h"
#include "tests/support/ViewPicture.h"
#include "ui/agenda/Agenda.h"
#include "ui/agenda/AgendaView.h"

#include <QEventLoop>
#include <QGuiApplication>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

using namespace Qt::StringLiterals;
using namespace quorvane;

namespace {

constexpr int frames = 200;
constexpr double pixelsPerFrame = 37;

double processorMilliseconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// The page in a window over a model that holds `count` meetings in fourteen days.
struct Window
{
    explicit Window(int count)
    {
        for (int number = 0; number < count; ++number)
            add(number, 600 + number * 14.0 * 86400 / count);
        fixture.start(AppModel::Mode::preview);
        refresh();
        agenda = std::make_unique<Agenda>(*fixture.model);
        picture.show(QUrl(u"qrc:/Quorvane/Agenda/AgendaPage.qml"_s), QSize(884, 780),
                     {{u"agenda"_s, QVariant::fromValue(agenda.get())}});
    }

    void add(int number, double after)
    {
        content.calendarEvents.push_back(teamMeeting(number, ModelFixture::noon + after));
    }

    void refresh()
    {
        std::ranges::sort(content.calendarEvents, {}, &Meeting::start);
        content.meetings = content.calendarEvents;
        fixture.model->showPreview(content);
    }

    /// The processor time from `change` to the end of the frame that shows it.
    double frame(const std::function<void()> &change)
    {
        QEventLoop loop;
        const auto drawn =
            QObject::connect(&picture.view, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
        const double before = processorMilliseconds();
        change();
        picture.view.update();
        loop.exec();
        QObject::disconnect(drawn);
        return processorMilliseconds() - before;
    }

    ModelFixture fixture;
    PreviewContent content;
    std::unique_ptr<Agenda> agenda;
    ViewPicture picture;
};

void print(const char *name, std::vector<double> times)
{
    std::ranges::sort(times);
    std::printf("\"%s\": {\"median\": %.2f, \"p95\": %.2f}", name, times[times.size() / 2],
                times[times.size() * 95 / 100]);
}

std::vector<double> scrolling(Window &window)
{
    QQuickItem *scroll = window.picture.item("scroll");
    const double most = scroll->property("contentHeight").toDouble() - scroll->height();
    std::vector<double> times;
    for (int i = 0; i < frames; ++i) {
        const double y = std::fmod(i * pixelsPerFrame, std::max(pixelsPerFrame, most));
        times.push_back(window.frame([&] { scroll->setProperty("contentY", y); }));
    }
    return times;
}

} // namespace

int main(int argc, char *argv[])
{
    QQuickWindow::setSceneGraphBackend(u"software"_s);
    const QGuiApplication application(argc, argv);
    AgendaView::registerTypes();
    Window many(QCoreApplication::arguments().value(1, u"2000"_s).toInt());
    Window few(10);

    std::printf("{");
    print("scrolling", scrolling(many));
    std::printf(", ");
    print("scrolling ten", scrolling(few));
    std::vector<double> refreshes;
    std::vector<double> seconds;
    for (int i = 0; i < 20; ++i) {
        many.add(1'000'000 + i, 300 + i);
        refreshes.push_back(many.frame([&] { many.refresh(); }));
    }
    for (int i = 0; i < 60; ++i) {
        many.fixture.clock.time += 1;
        seconds.push_back(many.frame([&] { Q_EMIT many.fixture.model->ticked(); }));
    }
    std::printf(", ");
    print("refresh", refreshes);
    std::printf(", ");
    print("second", seconds);
    std::printf("}\n");
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewScenes.h"

#include "app/PreviewContents.h"
#include "ui/dashboard/DashboardWindow.h"

#include <QDateTime>

using namespace Qt::StringLiterals;

namespace quorvane::PreviewScenes {

namespace {

using Section = Dashboard::Section;
using Sheet = WindowScene::Sheet;
using Theme = WindowScene::Theme;

constexpr QSize narrow{820, 1120};
constexpr QSize smallest{720, 620};
constexpr QSize wide{1440, 900};
/// Room for all of the updates.
constexpr QSize high{1100, 1000};

/// A view that is shown in both themes.
void addBoth(std::vector<WindowScene> &scenes, const QString &name, const PreviewContent &content,
             Section section = Section::agenda, QSize size = DashboardWindow::defaultSize)
{
    scenes.push_back({name + u"-light"_s, Theme::light, content, section, Sheet::closed, size});
    scenes.push_back({name + u"-dark"_s, Theme::dark, content, section, Sheet::closed, size});
}

void addUpdates(std::vector<WindowScene> &scenes, const PreviewContent &content)
{
    using Phase = UpdateSettings::Phase;
    const QString notes = u"• Alerts come up on displays that were plugged in a moment ago.\n"
                          "• Calendars with thousands of repeating meetings are read in half the time.\n"
                          "• A meeting’s link no longer waits for a browser that is still starting."_s;
    const PreviewUpdates::Moment available{Phase::available, u"Version 1.5.0 (813) is available."_s, notes};
    const PreviewUpdates::Moment downloading{Phase::downloading, u"Downloading version 1.5.0 (813)…"_s, notes,
                                             0.64};
    scenes.push_back({u"dashboard-update-available-light"_s, Theme::light, content, Section::settings,
                      Sheet::closed, high, available});
    scenes.push_back({u"dashboard-update-downloading-dark"_s, Theme::dark, content, Section::settings,
                      Sheet::closed, high, downloading});
}

} // namespace

double moment()
{
    return static_cast<double>(QDateTime(QDate(2026, 7, 14), QTime(9, 48)).toSecsSinceEpoch());
}

std::vector<WindowScene> window()
{
    const double now = moment();
    const PreviewContent day = PreviewContents::busyDay(now);
    const PreviewContent trouble = PreviewContents::trouble(now);
    std::vector<WindowScene> scenes;
    addBoth(scenes, u"dashboard-agenda"_s, day);
    addBoth(scenes, u"dashboard-calendars"_s, trouble, Section::calendars);
    addBoth(scenes, u"dashboard-settings"_s, day, Section::settings);
    addBoth(scenes, u"dashboard-paused"_s, PreviewContents::paused(now));
    addBoth(scenes, u"dashboard-trouble"_s, trouble);
    addBoth(scenes, u"dashboard-notice"_s, PreviewContents::success(now));
    addBoth(scenes, u"dashboard-first-start"_s, PreviewContents::firstStart());
    addBoth(scenes, u"dashboard-quiet"_s, PreviewContents::quietDays(now));
    addBoth(scenes, u"dashboard-narrow"_s, day, Section::agenda, narrow);
    addBoth(scenes, u"dashboard-wide"_s, day, Section::agenda, wide);
    addBoth(scenes, u"dashboard-smallest-agenda"_s, day, Section::agenda, smallest);
    addBoth(scenes, u"dashboard-smallest-calendars"_s, trouble, Section::calendars, smallest);
    addBoth(scenes, u"dashboard-smallest-settings"_s, day, Section::settings, smallest);
    addUpdates(scenes, day);
    for (const auto &[name, sheet, theme, size] :
         {std::tuple{u"sheet-empty-light"_s, Sheet::empty, Theme::light, DashboardWindow::defaultSize},
          std::tuple{u"sheet-filled-dark"_s, Sheet::filled, Theme::dark, DashboardWindow::defaultSize},
          std::tuple{u"sheet-filled-light"_s, Sheet::filled, Theme::light, DashboardWindow::defaultSize},
          std::tuple{u"sheet-refused-dark"_s, Sheet::refused, Theme::dark, DashboardWindow::defaultSize},
          std::tuple{u"sheet-refused-smallest-dark"_s, Sheet::refused, Theme::dark, smallest}})
        scenes.push_back({name, theme, day, Section::agenda, sheet, size});
    return scenes;
}

std::vector<AlertScene> alert()
{
    const QString review = u"Weekly design review"_s;
    const QString longTitle = u"Quarterly planning with Design, Support, Field Engineering and everybody who "
                              "signed up for the migration rehearsal in the Lisbon office"_s;
    return {
        {.name = u"alert-ahead-focus"_s,
         .title = review,
         .secondsLeft = 65,
         .focus = AlertScene::Focus::shown},
        {.name = u"alert-last-minute"_s, .title = review, .secondsLeft = 45},
        {.name = u"alert-started"_s, .title = review, .secondsLeft = -190, .hasLink = false},
        {.name = u"alert-long-title"_s, .title = longTitle, .secondsLeft = 45},
        {.name = u"alert-portrait"_s, .title = review, .secondsLeft = 45, .size = {720, 1280}},
        {.name = u"alert-small"_s, .title = review, .secondsLeft = 45, .size = {1024, 600}},
    };
}

} // namespace quorvane::PreviewScenes

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QuorvaneApp.h"

#include "alert/PanelPlacement.h"
#include "alert/linux/CanberraChime.h"
#include "alert/linux/DesktopDisplayWaker.h"
#include "alert/linux/DesktopMotionPreference.h"
#include "alert/linux/DesktopPlatform.h"
#include "alert/linux/FrameSettler.h"
#include "alert/linux/XdgLinkOpener.h"
#include "app/PartSetups.h"
#include "app/TrayScene.h"
#include "app/UpdateScene.h"
#include "app/UserFolders.h"
#include "calendars/linux/DesktopFolderChooser.h"
#include "calendars/linux/PortalFolderChooser.h"
#include "instance/linux/WindowActivation.h"
#include "launch/linux/StartKind.h"
#include "model/linux/SecondTicker.h"
#include "model/linux/SystemWakeSource.h"
#include "model/linux/TimerSlackActivities.h"
#include "network/linux/SecretService.h"
#include "posix/UnusedMemory.h"
#include "ui/components/Appearance.h"
#include "ui/components/linux/DesktopAppearance.h"
#include "ui/dialogs/QuickFolderChooser.h"

#include <QCoreApplication>
#include <QDir>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

std::vector<std::unique_ptr<FolderChooser>> folderChoosers()
{
    std::vector<std::unique_ptr<FolderChooser>> choosers;
    choosers.push_back(std::make_unique<PortalFolderChooser>());
    choosers.push_back(std::make_unique<QuickFolderChooser>());
    return choosers;
}

} // namespace

/// In the order in which they are built; each uses only what stands above it.
struct QuorvaneApp::Parts
{
    Parts(const QProcessEnvironment &environment, const Clock &time)
        : clock(time)
        , opener(environment, startKind() == StartKind::agent ? XdgLinkOpener::Start::byServiceManager
                                                              : XdgLinkOpener::Start::direct)
    {
    }

    Preferences preferences{UserFolders::settingsFile()};
    const Clock &clock;
    SecondTicker ticks;
    SystemWakeSource wakes{ticks};
    TimerSlackActivities activities;
    PartSetups::CalendarStores calendarStores{PartSetups::calendarStores()};
    CalendarReader calendarReader{std::move(calendarStores.all)};
    FantasticalReader fantasticalReader{PartSetups::fantasticalReader(preferences)};
    DesktopFolderChooser folderChooser{folderChoosers()};
    FantasticalAccess fantasticalAccess{QDir::homePath(), folderChooser, [this](const QString &folder) {
                                            return preferences.setFantasticalFolder(folder);
                                        }};
    SecretService keyring;
    Secrets secrets{keyring};
    Network network{PartSetups::network(secrets, preferences, clock)};
    std::unique_ptr<PanelPlacement> placement = choosePlacement();
    CanberraChime chime;
    DesktopDisplayWaker waker;
    DesktopMotionPreference motion;
    XdgLinkOpener opener;
    Appearance appearance{nullptr};
    DesktopAppearance desktopAppearance{appearance};
    Overlay overlay{
        {*placement, chime, waker, opener, motion, [this] { return preferences.soundEnabled(); }}};
};

QuorvaneApp::QuorvaneApp(const QStringList &arguments, const QProcessEnvironment &environment,
                         const Clock &clock, VersionStart &start)
    : m_parts(std::make_unique<Parts>(environment, clock))
    , m_delegate(arguments, [this](AppModel::Mode mode) { return makeModel(mode); })
    , m_updates(std::make_unique<UpdateScene>(arguments, m_parts->preferences, clock, start))
{
    m_delegate.applicationDidFinishLaunching(m_updates->manager());
    m_dashboard = std::make_unique<DashboardWindow>(model(), m_parts->appearance, &m_updates->manager(),
                                                    FrameSettler::whenSettled);
    m_updates->begin(model(), *m_dashboard);
    followMotion();
    // A window that is looked at once a day must not weigh on the rest of it.
    QObject::connect(m_dashboard.get(), &DashboardWindow::closed, &returnUnusedMemory);
}

QuorvaneApp::~QuorvaneApp() = default;

std::unique_ptr<AppModel> QuorvaneApp::makeModel(AppModel::Mode mode)
{
    const AppModelServices services{
        .calendarReader = m_parts->calendarReader,
        .fantasticalReader = m_parts->fantasticalReader,
        .fantasticalAccess = m_parts->fantasticalAccess,
        .secrets = m_parts->secrets,
        .network = m_parts->network,
        .overlay = m_parts->overlay,
        .preferences = m_parts->preferences,
        .clock = m_parts->clock,
        .ticks = m_parts->ticks,
        .wakes = m_parts->wakes,
        .activities = m_parts->activities,
        .ledgerFile = UserFolders::ledgerFile(),
        .opener = m_parts->opener,
        .folderChooser = m_parts->folderChooser,
        .useCalendarFolders =
            [&stores = m_parts->calendarStores](const QStringList &folders, const QStringList &ownAddresses) {
                stores.use(folders, ownAddresses);
            },
    };
    return std::make_unique<AppModel>(mode, services);
}

void QuorvaneApp::followMotion()
{
    const auto follow = [parts = m_parts.get()] {
        parts->appearance.setReduceMotion(parts->motion.reduceMotion());
    };
    QObject::connect(&m_parts->motion, &MotionPreference::changed, &m_parts->appearance, follow);
    follow();
}

void QuorvaneApp::showTray()
{
    m_tray = std::make_unique<TrayScene>(model(), m_parts->appearance);
    if (model().mode() == AppModel::Mode::live)
        m_tray->tellWithoutTray(m_parts->preferences);
    const MenuContent &menu = m_tray->content();
    QObject::connect(&menu, &MenuContent::openRequested, m_dashboard.get(), &DashboardWindow::open);
    QObject::connect(&menu, &MenuContent::checkForUpdatesRequested, m_updates.get(),
                     &UpdateScene::checkForUpdates);
    // Not by quit(), which asks the windows first: an alert refuses to be closed.
    QObject::connect(&menu, &MenuContent::quitRequested, qApp, [] { QCoreApplication::exit(EXIT_SUCCESS); });
}

void QuorvaneApp::show(const QStringList &arguments)
{
    showTray();
    const bool wantsAlert = arguments.contains(u"--preview-overlay"_s);
    if (startKind() != StartKind::person && !m_updates->opensWindow()) {
        if (wantsAlert)
            model().previewAlert();
        return;
    }
    if (wantsAlert)
        QObject::connect(m_dashboard.get(), &DashboardWindow::painted, &model(), &AppModel::previewAlert,
                         Qt::SingleShotConnection);
    m_dashboard->open();
}

void QuorvaneApp::activate(const Activation &activation)
{
    if (activation.wish == Activation::Wish::nothing)
        return;
    const WindowActivation permission(activation);
    m_dashboard->open();
    if (activation.wish == Activation::Wish::windowAndSampleAlert)
        model().previewAlert();
}

bool QuorvaneApp::finish()
{
    return m_updates->finish();
}

void QuorvaneApp::reportTo(std::FILE *terminal)
{
    std::fputs(
        "Quorvane is running. Closing its window leaves it at work in the background; Ctrl+C ends it.\n",
        terminal);
    const auto print = [terminal](const QString &line) {
        std::fprintf(terminal, "%s\n", qUtf8Printable(line));
        std::fflush(terminal);
    };
    const auto printStatus = [this, print, last = QStringList()]() mutable {
        const QStringList lines{model().status(), model().fantasticalStatus()};
        for (qsizetype i = 0; i < lines.size(); ++i) {
            if (lines[i] != last.value(i))
                print(lines[i]);
        }
        last = lines;
    };
    const auto printNotice = [this, print] {
        if (const auto &notice = model().notice())
            print(*notice);
    };
    QObject::connect(&model(), &AppModel::statusChanged, &model(), printStatus);
    QObject::connect(&model(), &AppModel::noticeChanged, &model(), printNotice);
    printNotice(); // what came up before anybody listened
}

} // namespace quorvane

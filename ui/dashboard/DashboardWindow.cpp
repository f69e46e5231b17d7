// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dashboard/DashboardWindow.h"

#include "ui/components/ComponentsModule.h"
#include "ui/dashboard/DashboardView.h"

#include <QEvent>
#include <QGuiApplication>
#include <QPointer>
#include <QQmlEngine>
#include <QQuickView>
#include <QScreen>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// For what a desktop puts around a window, which it does not say before.
constexpr QSize frameAllowance(20, 40);

/// The largest window that has its title bar and all of its content on screen, whichever display the desktop
/// chooses for it.
QSize largestSize()
{
    QSize largest = DashboardWindow::defaultSize * 100;
    for (const QScreen *screen : QGuiApplication::screens())
        largest = largest.boundedTo(screen->availableSize());
    return largest - frameAllowance;
}

} // namespace

/// In the order in which they are built; the window goes first and the engine before what it shows.
struct DashboardWindow::View
{
    View(AppModel &model, UpdateSettings *updates)
        : dashboard(model, updates)
        , window(std::make_unique<QQuickView>(&engine, nullptr))
    {
    }

    Dashboard dashboard;
    QQmlEngine engine;
    std::unique_ptr<QQuickView> window;
};

DashboardWindow::DashboardWindow(AppModel &model, Appearance &appearance, UpdateSettings *updates,
                                 Settle settle)
    : m_model(model)
    , m_appearance(appearance)
    , m_updates(updates)
    , m_settle(std::move(settle))
{
}

DashboardWindow::~DashboardWindow() = default;

void DashboardWindow::open()
{
    if (m_view) {
        m_view->window->show();
        m_view->window->raise();
        m_view->window->requestActivate();
        return;
    }
    DashboardView::registerTypes();
    m_view = std::make_unique<View>(m_model, m_updates);
    m_view->dashboard.setSection(m_section);
    ComponentsModule::install(m_view->engine, m_appearance);

    QQuickView &window = *m_view->window;
    window.setTitle(u"Quorvane"_s);
    window.setMinimumSize(minimumSize);
    window.resize(m_size.boundedTo(largestSize()).expandedTo(minimumSize));
    window.setResizeMode(QQuickView::SizeRootObjectToView);
    window.setInitialProperties({{u"dashboard"_s, QVariant::fromValue(&m_view->dashboard)}});
    window.setSource(DashboardView::source());
    window.installEventFilter(this);
    connect(&window, &QQuickWindow::frameSwapped, this, &DashboardWindow::painted,
            static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    window.show();
    window.requestActivate();
}

void DashboardWindow::openUpdates()
{
    open();
    m_view->dashboard.openUpdates();
}

// The window may be in the middle of an event, and Qt's own way to close one does not wait for the display
// server.
bool DashboardWindow::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::Close)
        return false;
    event->ignore();
    // One that is closing already is let go in its own time.
    if (m_view && watched == m_view->window.get())
        close();
    return true;
}

void DashboardWindow::close()
{
    if (!m_view)
        return;
    m_size = m_view->window->size();
    m_section = m_view->dashboard.section();
    View *view = m_closing.emplace_back(std::move(m_view)).get();
    m_settle(*view->window, [self = QPointer(this), view] {
        if (self)
            self->discard(view);
    });
}

void DashboardWindow::discard(View *view)
{
    std::erase_if(m_closing, [view](const auto &closing) { return closing.get() == view; });
    Q_EMIT closed();
}

} // namespace quorvane

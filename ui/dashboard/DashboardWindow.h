// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/dashboard/Dashboard.h"

#include <QSize>

#include <functional>
#include <memory>
#include <vector>

class QQuickView;
class QWindow;

namespace quorvane {

class Appearance;

/// The dashboard's window. It exists only while it is open; closing it leaves the program running. Main
/// thread only.
class DashboardWindow final : public QObject
{
    Q_OBJECT

public:
    /// Runs an action once a window may be taken off the display server.
    using Settle = std::function<void(QWindow &, std::function<void()>)>;

    static constexpr QSize defaultSize{1100, 780};
    static constexpr QSize minimumSize{720, 620};

    /// All outlive it; `updates` may be null.
    DashboardWindow(AppModel &model, Appearance &appearance, UpdateSettings *updates, Settle settle);
    ~DashboardWindow() override;

    /// Shows the window, or brings the one that is open to the front.
    void open();
    /// The same, with the updates in sight.
    void openUpdates();
    void close();
    [[nodiscard]] bool isOpen() const { return m_view != nullptr; }

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// The window has been painted for the first time.
    void painted();
    /// The window is gone, and all that it was made of.
    void closed();

private:
    struct View;

    void discard(View *view);

    AppModel &m_model;
    Appearance &m_appearance;
    UpdateSettings *m_updates;
    Settle m_settle;
    std::unique_ptr<View> m_view;
    /// Those that the display server has yet to let go.
    std::vector<std::unique_ptr<View>> m_closing;
    /// How the user left the window.
    QSize m_size = defaultSize;
    Dashboard::Section m_section = Dashboard::Section::agenda;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickView>

class QQmlEngine;

namespace quorvane {

class Takeover;

/// One display's window of an alert: opaque, dark whatever the desktop's theme, filled by the takeover view.
/// Only its owner takes it down: the window manager's request to close it is refused. Where the view cannot
/// be loaded, a plain one that can be answered just the same stands in.
class MeetingAlertPanel final : public QQuickView
{
    Q_OBJECT

public:
    /// Loads `view`, a component like `TakeoverView::source()`. The engine and the takeover must outlive the
    /// panel.
    MeetingAlertPanel(QQmlEngine &engine, Takeover &takeover, const QUrl &view);

    /// Whether it is the alert's own view that is shown and not the plain one.
    [[nodiscard]] bool hasFullView() const { return m_plainView == nullptr; }

protected:
    bool event(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void fallBack();

    Takeover &m_takeover;
    QQuickItem *m_plainView = nullptr;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace quorvane {

/// Turns SIGTERM, SIGINT and SIGHUP into a clean end of the event loop. Make it before any thread starts, so
/// that every thread inherits the blocked signals and they arrive here alone; Qt starts threads with its
/// application.
class QuitSignals final : public QObject
{
    Q_OBJECT

public:
    QuitSignals();
    ~QuitSignals() override;

    /// From now on a signal ends the event loop. Needs the application object.
    void listen();

private:
    void obey();

    int m_descriptor = -1;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QElapsedTimer>

#include <chrono>
#include <optional>

namespace quorvane {

/// Tells the service manager that started this process how it is (sd_notify(3)), and nothing where none did.
/// Main thread only.
class ServiceNotifier final
{
public:
    /// Reads where to send to from the environment and takes it out of there, so that no program which this
    /// one starts speaks in its name. Construct it before there are other threads.
    ServiceNotifier();

    /// The program works: its alerts will come.
    void ready();

    /// The main thread is alive. To be called with every tick; sent three times within the time after which
    /// the manager takes the program for hung. Repeats `ready` too, if the manager could not take it then.
    void ping();

    /// The program is about to end because it was asked to.
    void stopping();

private:
    [[nodiscard]] bool send(const QByteArray &state) const;

    QByteArray m_socket;
    std::optional<std::chrono::microseconds> m_pingInterval;
    QElapsedTimer m_sincePing;
    bool m_owesReady = false;
};

} // namespace quorvane

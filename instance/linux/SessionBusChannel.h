// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "instance/InstanceChannel.h"
#include "instance/linux/ApplicationInterface.h"

#include <QDBusConnection>

namespace quorvane {

/// The application's name on the session bus, and the object behind it. Needs an application object.
class SessionBusChannel final : public InstanceChannel
{
    Q_OBJECT

public:
    explicit SessionBusChannel(QDBusConnection bus = QDBusConnection::sessionBus());

    [[nodiscard]] Claim claim() override;
    void release() override;
    [[nodiscard]] Result<void> handOver(const Activation &activation) override;
    void ask() override;

private:
    QDBusConnection m_bus;
    ApplicationInterface m_interface;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/ChangeRelay.h"

#include <QTimer>

namespace quorvane {

std::shared_ptr<ChangeRelay> ChangeRelay::create()
{
    return {new ChangeRelay, [](ChangeRelay *relay) { relay->deleteLater(); }};
}

void ChangeRelay::report()
{
    if (m_isPending.exchange(true))
        return;
    const auto announce = [this] {
        m_isPending = false;
        Q_EMIT changed();
    };
    QMetaObject::invokeMethod(
        this, [this, announce] { QTimer::singleShot(burstTime, this, announce); }, Qt::QueuedConnection);
}

} // namespace quorvane

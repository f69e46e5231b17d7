// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/TickSource.h"

#include <QSocketNotifier>

#include <memory>

namespace quorvane {

/// Ticks at each full second of the wall clock by a kernel timer (timerfd_create(2)), which also tells when
/// somebody sets the clock.
class SecondTicker final : public TickSource
{
    Q_OBJECT

public:
    explicit SecondTicker(QObject *parent = nullptr);
    ~SecondTicker() override;

    void start() override;

private:
    void arm();
    void readTimer();

    int m_timer = -1;
    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace quorvane {

/// Tells that the machine woke from sleep. Lives on the main thread.
class WakeSource : public QObject
{
    Q_OBJECT

public:
    virtual void start() = 0;

Q_SIGNALS:
    void woke();

protected:
    using QObject::QObject;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace quorvane {

/// The model's heartbeat: once a second, right after the wall clock's full second, so that what is due at a
/// full second happens then and not up to a second later. Lives on the main thread.
class TickSource : public QObject
{
    Q_OBJECT

public:
    virtual void start() = 0;

Q_SIGNALS:
    void tick();
    /// Somebody set the wall clock. Comes before the first tick on the new time.
    void clockChanged();

protected:
    using QObject::QObject;
};

} // namespace quorvane

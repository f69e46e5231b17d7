// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>

namespace quorvane {

/// The desktop's wish for reduced motion. Lives on the main thread.
class MotionPreference : public QObject
{
    Q_OBJECT

public:
    /// The last known wish; never waits. False until the desktop has answered.
    [[nodiscard]] virtual bool reduceMotion() const = 0;

Q_SIGNALS:
    void changed();

protected:
    using QObject::QObject;
};

} // namespace quorvane

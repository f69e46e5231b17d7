// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "instance/Activation.h"

#include <QtGlobal>

namespace quorvane {

/// While it lives, a window that asks for it comes to the front as `activation` permits. Needs the
/// application object.
class WindowActivation final
{
public:
    explicit WindowActivation(const Activation &activation);
    ~WindowActivation();
    Q_DISABLE_COPY_MOVE(WindowActivation)
};

} // namespace quorvane

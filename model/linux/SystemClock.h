// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/Clock.h"

namespace quorvane {

/// The machine's wall clock.
class SystemClock final : public Clock
{
public:
    [[nodiscard]] double now() const override;
};

} // namespace quorvane

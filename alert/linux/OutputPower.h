// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "alert/linux/WaylandGlobal.h"

#include <memory>

namespace quorvane {

/// The compositor's zwlr_output_power_manager_v1: lights outputs that the compositor has powered off, which
/// input or the idle service would not. Main thread only; destroy it before QGuiApplication.
class OutputPower final
{
public:
    /// Null unless Qt runs on Wayland and the compositor offers the protocol. Asks the compositor once.
    [[nodiscard]] static std::unique_ptr<OutputPower> bind();

    /// Asks that every output be on, and returns at once. An output that cannot be lit stays as it is.
    void lightAll() const;

private:
    explicit OutputPower(std::unique_ptr<WaylandGlobal> manager);

    std::unique_ptr<WaylandGlobal> m_manager;
};

} // namespace quorvane

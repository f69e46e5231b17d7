// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/LayerShell.h"

#include "alert/linux/LayerShellProtocol.h"

#include <utility>

namespace quorvane {

namespace {

constexpr uint32_t knownShell = 4;

} // namespace

std::unique_ptr<LayerShell> LayerShell::bind()
{
    std::unique_ptr<WaylandGlobal> global = WaylandGlobal::bind(zwlr_layer_shell_v1_interface, knownShell);
    return global ? std::unique_ptr<LayerShell>(new LayerShell(std::move(global))) : nullptr;
}

LayerShell::LayerShell(std::unique_ptr<WaylandGlobal> global)
    : m_global(std::move(global))
{
}

zwlr_layer_shell_v1 *LayerShell::shell() const
{
    return reinterpret_cast<zwlr_layer_shell_v1 *>(m_global->proxy());
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/OutputPower.h"

#include "wlr-output-power-management-unstable-v1-client-protocol.h"

#include <QGuiApplication>
#include <QScreen>

#include <qpa/qplatformnativeinterface.h>
#include <qpa/qplatformscreen.h>

#include <utility>

namespace quorvane {

namespace {

constexpr uint32_t knownManager = 1;

} // namespace

std::unique_ptr<OutputPower> OutputPower::bind()
{
    std::unique_ptr<WaylandGlobal> manager =
        WaylandGlobal::bind(zwlr_output_power_manager_v1_interface, knownManager);
    return manager ? std::unique_ptr<OutputPower>(new OutputPower(std::move(manager))) : nullptr;
}

OutputPower::OutputPower(std::unique_ptr<WaylandGlobal> manager)
    : m_manager(std::move(manager))
{
}

void OutputPower::lightAll() const
{
    auto *manager = reinterpret_cast<zwlr_output_power_manager_v1 *>(m_manager->proxy());
    auto *native = QGuiApplication::platformNativeInterface();
    // An output that is off keeps its wl_output, and with it its QScreen.
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (QScreen *screen : screens) {
        if (screen->handle() == nullptr || screen->handle()->isPlaceholder())
            continue;
        auto *output = static_cast<wl_output *>(native->nativeResourceForScreen("output", screen));
        // Destroyed at once: what it would tell, the mode and a failure, changes nothing for us.
        zwlr_output_power_v1 *power = zwlr_output_power_manager_v1_get_output_power(manager, output);
        zwlr_output_power_v1_set_mode(power, ZWLR_OUTPUT_POWER_V1_MODE_ON);
        zwlr_output_power_v1_destroy(power);
    }
    m_manager->flush();
}

} // namespace quorvane

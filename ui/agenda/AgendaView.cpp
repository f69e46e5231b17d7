// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/AgendaView.h"

#include "ui/components/ComponentsModule.h"

#include <QtCore/qresource.h>

extern void qml_register_types_Quorvane_Agenda();

// Registered by name: a linker drops objects of a static library that nothing refers to. Outside any
// namespace, as the macro demands.
static void initialiseResources()
{
    Q_INIT_RESOURCE(qmlcache_quorvane_ui_agenda);
}

namespace quorvane::AgendaView {

void registerTypes()
{
    static const bool registered = [] {
        ComponentsModule::registerTypes();
        initialiseResources();
        qml_register_types_Quorvane_Agenda();
        return true;
    }();
    Q_UNUSED(registered)
}

} // namespace quorvane::AgendaView

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/SheetView.h"

#include "ui/components/ComponentsModule.h"

#include <QtCore/qresource.h>

extern void qml_register_types_Quorvane_Sheet();

// Registered by name: a linker drops objects of a static library that nothing refers to. Outside any
// namespace, as the macro demands.
static void initialiseResources()
{
    Q_INIT_RESOURCE(qmlcache_quorvane_ui_sheet);
}

namespace quorvane::SheetView {

void registerTypes()
{
    static const bool registered = [] {
        ComponentsModule::registerTypes();
        initialiseResources();
        qml_register_types_Quorvane_Sheet();
        return true;
    }();
    Q_UNUSED(registered)
}

} // namespace quorvane::SheetView

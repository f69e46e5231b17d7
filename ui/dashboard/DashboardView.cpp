// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dashboard/DashboardView.h"

#include "ui/agenda/AgendaView.h"
#include "ui/calendars/CalendarsView.h"
#include "ui/settings/SettingsView.h"
#include "ui/sheet/SheetView.h"

#include <QtCore/qresource.h>

extern void qml_register_types_Quorvane_Dashboard();

// Registered by name: a linker drops objects of a static library that nothing refers to. Outside any
// namespace, as the macro demands.
static void initialiseResources()
{
    Q_INIT_RESOURCE(qmlcache_quorvane_ui_dashboard);
}

namespace quorvane::DashboardView {

void registerTypes()
{
    static const bool registered = [] {
        AgendaView::registerTypes();
        CalendarsView::registerTypes();
        SettingsView::registerTypes();
        SheetView::registerTypes();
        initialiseResources();
        qml_register_types_Quorvane_Dashboard();
        return true;
    }();
    Q_UNUSED(registered)
}

QUrl source()
{
    return QUrl(QStringLiteral("qrc:/Quorvane/Dashboard/DashboardView.qml"));
}

} // namespace quorvane::DashboardView

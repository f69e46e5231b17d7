// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/TakeoverView.h"

#include "ui/components/ComponentsModule.h"

#include <QtCore/qresource.h>

extern void qml_register_types_Quorvane_Alert();

// Registered by name: a linker drops objects of a static library that nothing refers to. Outside any
// namespace, as the macro demands.
static void initialiseResources()
{
    Q_INIT_RESOURCE(qmlcache_quorvane_alert);
}

namespace quorvane::TakeoverView {

void registerTypes()
{
    static const bool registered = [] {
        initialiseResources();
        ComponentsModule::registerTypes();
        qml_register_types_Quorvane_Alert();
        return true;
    }();
    Q_UNUSED(registered)
}

QUrl source()
{
    return QUrl(QStringLiteral("qrc:/Quorvane/Alert/TakeoverView.qml"));
}

} // namespace quorvane::TakeoverView

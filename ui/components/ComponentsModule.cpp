// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/components/ComponentsModule.h"

#include "ui/components/Appearance.h"

#include <QQmlEngine>
#include <QtCore/qresource.h>

extern void qml_register_types_Quorvane_Components();

// Registered by name: a linker drops objects of a static library that nothing refers to. Outside any
// namespace, as the macro demands.
static void initialiseResources()
{
    Q_INIT_RESOURCE(qmlcache_quorvane_ui_components);
}

namespace quorvane::ComponentsModule {

namespace {

constexpr const char *appearanceProperty = "quorvaneAppearance";

} // namespace

void registerTypes()
{
    static const bool registered = [] {
        initialiseResources();
        qml_register_types_Quorvane_Components();
        return true;
    }();
    Q_UNUSED(registered)
}

void install(QQmlEngine &engine, Appearance &appearance)
{
    registerTypes();
    engine.addImportPath(QStringLiteral(":/"));
    engine.setProperty(appearanceProperty, QVariant::fromValue(&appearance));
}

Appearance *installedAppearance(const QQmlEngine &engine)
{
    return engine.property(appearanceProperty).value<Appearance *>();
}

} // namespace quorvane::ComponentsModule

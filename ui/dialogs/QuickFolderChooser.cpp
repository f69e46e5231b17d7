// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dialogs/QuickFolderChooser.h"

#include "ui/dialogs/FolderBrowser.h"

#include <QCoroFuture>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QVariantMap>

#include <QtCore/qresource.h>

#include <memory>

extern void qml_register_types_Quorvane_Dialogs();

// Registered by name: a linker drops objects of a static library that nothing refers to. Outside any
// namespace, as the macro demands.
static void initialiseResources()
{
    Q_INIT_RESOURCE(qmlcache_quorvane_ui_dialogs);
}

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

void registerTypes()
{
    static const bool registered = [] {
        initialiseResources();
        qml_register_types_Quorvane_Dialogs();
        return true;
    }();
    Q_UNUSED(registered)
}

} // namespace

QCoro::Task<Result<std::optional<QString>>> QuickFolderChooser::choose(FolderRequest request)
{
    registerTypes();
    // The engine goes with the dialog: it is used once in years, and takes some megabytes.
    FolderBrowser browser(request);
    QQmlEngine engine;
    QQmlComponent component(&engine, QUrl(u"qrc:/Quorvane/Dialogs/FolderDialog.qml"_s));
    if (!component.isReady())
        co_return notSupported();
    const QVariantMap properties{{u"browser"_s, QVariant::fromValue(&browser)}};
    const std::unique_ptr<QObject> window(component.createWithInitialProperties(properties));
    if (!window)
        co_return notSupported();
    const QFuture<FolderBrowser::Choice> choice = browser.choice();
    co_return co_await choice;
}

} // namespace quorvane

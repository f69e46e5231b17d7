// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Switch.h"
#include "ui/components/Appearance.h"
#include "ui/components/ComponentsModule.h"

#include <QImage>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QQuickView>
#include <QTest>

#include <memory>

namespace quorvane {

/// A view in a real window, drawn in software as without a display, to look at and to work with. One per
/// test; the platform must be "offscreen".
class ViewPicture
{
public:
    explicit ViewPicture(Switch dark = Switch::on)
    {
        appearance.startDark(dark == Switch::on);
        ComponentsModule::install(*view.engine(), appearance);
        view.setResizeMode(QQuickView::SizeRootObjectToView);
    }

    /// Shows the component at `source`; false, with the reasons printed, if it cannot be made.
    bool show(const QUrl &source, QSize size, const QVariantMap &properties = {})
    {
        m_component = std::make_unique<QQmlComponent>(view.engine(), source);
        return show(source, size, properties, *m_component);
    }
    /// Shows QML text, which needs its imports.
    bool showText(const QByteArray &qml, QSize size, const QVariantMap &properties = {})
    {
        m_component = std::make_unique<QQmlComponent>(view.engine());
        m_component->setData(qml, QUrl());
        return show(QUrl(), size, properties, *m_component);
    }

    /// What is on the window now.
    [[nodiscard]] QImage image() { return view.grabWindow().convertToFormat(QImage::Format_RGB32); }
    /// By its objectName; null if there is none.
    [[nodiscard]] QQuickItem *item(const char *name) const
    {
        return view.rootObject() ? view.rootObject()->findChild<QQuickItem *>(QLatin1StringView(name))
                                 : nullptr;
    }
    /// Where an item is in the window.
    [[nodiscard]] static QRectF area(const QQuickItem *item)
    {
        return item->mapRectToScene(item->boundingRect());
    }

    // The view goes before the appearance that its engine uses.
    Appearance appearance;
    QQuickView view;

private:
    bool show(const QUrl &source, QSize size, const QVariantMap &properties, QQmlComponent &component)
    {
        QObject *root = component.isError() ? nullptr : component.createWithInitialProperties(properties);
        if (!root) {
            qWarning().noquote() << component.errorString();
            return false;
        }
        view.setContent(source, &component, root);
        view.resize(size);
        view.show();
        view.requestActivate();
        return QTest::qWaitForWindowActive(&view);
    }

    std::unique_ptr<QQmlComponent> m_component;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewStage.h"

#include "app/PreviewError.h"

#include <QCoreApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>

#include <memory>

namespace quorvane::PreviewStage {

namespace {

// A list makes its rows when it is laid out, and what they are made of may ask for another layout.
constexpr int layoutRounds = 4;

} // namespace

Result<QImage> picture(QQmlEngine &engine, const QUrl &source, const QVariantMap &properties, QSize size)
{
    QQuickRenderControl control;
    QQuickWindow window(&control);
    window.setGeometry({{}, size});
    window.contentItem()->setSize(size);

    QQmlComponent component(&engine, source);
    std::unique_ptr<QObject> root;
    if (component.isReady())
        root.reset(component.createWithInitialProperties(properties));
    auto *view = qobject_cast<QQuickItem *>(root.get());
    if (!view) {
        qWarning("%s", qUtf8Printable(component.errorString()));
        return Failure(make_error_code(PreviewError::viewUnavailable));
    }
    view->setParentItem(window.contentItem());
    view->setSize(size);

    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::black);
    window.setRenderTarget(QQuickRenderTarget::fromPaintDevice(&image));
    for (int round = 0; round < layoutRounds; ++round) {
        QCoreApplication::processEvents();
        control.polishItems();
        control.sync();
        control.render();
    }
    return image;
}

} // namespace quorvane::PreviewStage

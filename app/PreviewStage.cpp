// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewStage.h"

#include "app/PreviewError.h"

#include <QAnimationDriver>
#include <QCoreApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>

#include <memory>

namespace quorvane::PreviewStage {

namespace {

// Longer than any view takes to come up, in steps of a frame.
constexpr int settlingMilliseconds = 1000;
constexpr int frameMilliseconds = 20;

/// Time that passes as fast as it is asked to, so that a fade ends in the same picture on any machine.
class StageTime final : public QAnimationDriver
{
public:
    [[nodiscard]] qint64 elapsed() const override { return m_elapsed; }
    void advance() override
    {
        m_elapsed += frameMilliseconds;
        advanceAnimation();
    }

private:
    qint64 m_elapsed = 0;
};

} // namespace

Result<QImage> picture(QQmlEngine &engine, const QUrl &source, const QVariantMap &properties, QSize size)
{
    StageTime time;
    time.install();
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
    for (int passed = 0; passed < settlingMilliseconds; passed += frameMilliseconds) {
        time.advance();
        QCoreApplication::processEvents();
        control.polishItems();
    }
    control.sync();
    control.render();
    return image;
}

} // namespace quorvane::PreviewStage

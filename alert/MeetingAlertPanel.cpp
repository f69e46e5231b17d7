// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/MeetingAlertPanel.h"

#include "alert/PlainView.h"
#include "alert/Takeover.h"
#include "alert/TakeoverView.h"

#include <QKeyEvent>
#include <QLoggingCategory>
#include <QQmlError>
#include <QQuickItem>

namespace quorvane {

namespace {

constexpr QColor nightColor(18, 16, 13);

} // namespace

MeetingAlertPanel::MeetingAlertPanel(QQmlEngine &engine, Takeover &takeover, const QUrl &view)
    : QQuickView(&engine, nullptr)
    , m_takeover(takeover)
{
    setColor(nightColor);
    setTitle(takeover.windowTitle());
    setResizeMode(QQuickView::SizeRootObjectToView);
    TakeoverView::registerTypes();
    setInitialProperties({{QStringLiteral("takeover"), QVariant::fromValue(&m_takeover)}});
    setSource(view);
    if (status() != QQuickView::Ready)
        fallBack();
}

void MeetingAlertPanel::fallBack()
{
    qCritical("The alert's view cannot be loaded; a plain one is shown instead.");
    const QList<QQmlError> reasons = errors();
    for (const QQmlError &reason : reasons)
        qCritical("%s", qUtf8Printable(reason.toString()));
    m_plainView = new PlainView(m_takeover, contentItem());
    const auto fill = [this] { m_plainView->setSize(size()); };
    connect(this, &QWindow::widthChanged, m_plainView, fill);
    connect(this, &QWindow::heightChanged, m_plainView, fill);
    fill();
}

bool MeetingAlertPanel::event(QEvent *event)
{
    if (event->type() == QEvent::Close) {
        event->ignore();
        return true;
    }
    return QQuickView::event(event);
}

void MeetingAlertPanel::keyPressEvent(QKeyEvent *event)
{
    // The view comes first; but when it has lost its focus item, Return must still answer the alert.
    event->ignore();
    QQuickView::keyPressEvent(event);
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->isAccepted() || !isReturn || event->isAutoRepeat())
        return;
    event->accept();
    m_takeover.acknowledge();
}

} // namespace quorvane

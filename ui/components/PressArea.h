// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointer>
#include <QQuickItem>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// What can be pressed by pointer, Space or Return, with the focus that belongs to it. Not one of the
/// library's controls, because they do not let a view choose their accessible role.
class PressArea : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(bool pressed READ isPressed NOTIFY pressedChanged)
    Q_PROPERTY(bool hovered READ isHovered NOTIFY hoveredChanged)
    Q_PROPERTY(bool visualFocus READ hasVisualFocus NOTIFY visualFocusChanged)
    Q_PROPERTY(QQuickItem *background READ background WRITE setBackground NOTIFY backgroundChanged)
    Q_PROPERTY(QQuickItem *contentItem READ contentItem WRITE setContentItem NOTIFY contentItemChanged)

public:
    explicit PressArea(QQuickItem *parent = nullptr);

    [[nodiscard]] bool isPressed() const { return m_pressed; }
    [[nodiscard]] bool isHovered() const { return m_hovered; }
    /// Has the focus, and the person uses the keyboard.
    [[nodiscard]] bool hasVisualFocus() const { return m_usesKeys && hasActiveFocus(); }

    /// Items as large as this one: behind everything, and above that.
    [[nodiscard]] QQuickItem *background() const { return m_background; }
    void setBackground(QQuickItem *item);
    [[nodiscard]] QQuickItem *contentItem() const { return m_contentItem; }
    void setContentItem(QQuickItem *item);

    /// As if pressed; nothing while disabled.
    Q_INVOKABLE void click();

Q_SIGNALS:
    void clicked();
    void pressedChanged();
    void hoveredChanged();
    void visualFocusChanged();
    void backgroundChanged();
    void contentItemChanged();

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseUngrabEvent() override;
    void hoverEnterEvent(QHoverEvent *event) override;
    void hoverLeaveEvent(QHoverEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void geometryChange(const QRectF &geometry, const QRectF &before) override;

private:
    void setPressed(bool pressed);
    void setHovered(bool hovered);
    void setUsesKeys(bool usesKeys);
    void adopt(QQuickItem *item, double z);

    QPointer<QQuickItem> m_background;
    QPointer<QQuickItem> m_contentItem;
    bool m_pressed = false;
    bool m_hovered = false;
    bool m_spaceDown = false;
    bool m_usesKeys = false;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickPaintedItem>

namespace quorvane {

class Takeover;

/// The alert in its plainest form, painted without any QML: what stands in when the real view cannot be
/// loaded. A click on its button acknowledges; Return is the panel's.
class PlainView final : public QQuickPaintedItem
{
    Q_OBJECT

public:
    PlainView(Takeover &takeover, QQuickItem *parent);

    void paint(QPainter *painter) override;

protected:
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    [[nodiscard]] QRectF buttonArea() const;

    Takeover &m_takeover;
};

} // namespace quorvane

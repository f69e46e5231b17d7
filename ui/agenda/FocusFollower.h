// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QPointer>
#include <QQuickItem>

namespace quorvane {

/// Keeps what has the keyboard's focus in sight: asks for scrolling when the focus moves to something that
/// lies outside of the area that this item covers. Only the keyboard: what is clicked on is seen.
class FocusFollower : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QQuickItem *content MEMBER m_content NOTIFY contentChanged REQUIRED)

public:
    explicit FocusFollower(QQuickItem *parent = nullptr);
    ~FocusFollower() override;

Q_SIGNALS:
    void contentChanged();
    /// What scrolls should go up by `by` pixels (down if negative).
    void scrollWanted(qreal by);

protected:
    void itemChange(ItemChange change, const ItemChangeData &data) override;

private:
    void follow();

    /// What is followed; everything in it scrolls.
    QPointer<QQuickItem> m_content;
    QMetaObject::Connection m_focusWatch;
};

} // namespace quorvane

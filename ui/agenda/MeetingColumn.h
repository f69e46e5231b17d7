// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/RowItems.h"

#include <QPersistentModelIndex>
#include <QQmlComponent>
#include <QQuickItem>

#include <optional>

namespace quorvane {

/// The agenda's list. It is as high as all its rows and lies in something that scrolls, but has items only
/// for the rows that can be seen, and these are used again while it scrolls. Rows above what is seen may come
/// and go without anything seen moving. One row is the current one: Tab enters there, Up and Down and their
/// like make another one current and give it the focus.
class MeetingColumn : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(quorvane::MeetingRows *rows MEMBER m_rows WRITE setRows NOTIFY rowsChanged REQUIRED)
    Q_PROPERTY(QQmlComponent *delegate MEMBER m_delegate NOTIFY delegateChanged REQUIRED)
    Q_PROPERTY(qreal viewTop MEMBER m_viewTop WRITE setViewTop NOTIFY viewChanged)
    Q_PROPERTY(qreal viewHeight MEMBER m_viewHeight WRITE setViewHeight NOTIFY viewChanged)

public:
    explicit MeetingColumn(QQuickItem *parent = nullptr);
    ~MeetingColumn() override;

    /// What is shown; must outlive this.
    void setRows(MeetingRows *rows);
    /// The part of the list that can be seen, in its own coordinates.
    void setViewTop(qreal top);
    void setViewHeight(qreal height);

Q_SIGNALS:
    void rowsChanged();
    void delegateChanged();
    void viewChanged();
    /// What is seen has moved down by `by` pixels, because rows above it have come (or up, if they have
    /// gone).
    void shifted(qreal by);

protected:
    void updatePolish() override;
    void componentComplete() override;
    void geometryChange(const QRectF &now, const QRectF &before) override;
    void itemChange(ItemChange change, const ItemChangeData &data) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void markRestructured();
    void showChange(const QModelIndex &first, const QModelIndex &last);
    void restructure();
    [[nodiscard]] qreal shiftOfView() const;
    void settleCurrent();
    [[nodiscard]] bool isSeen(int row, qreal margin) const;
    void showMissing();
    [[nodiscard]] const RowItems::Shown *focused() const;
    void followFocus();
    void focusRow(int row);
    void giveFocus(int row);
    void letGoOfFocus();
    [[nodiscard]] std::optional<int> rowForKey(int key, int current) const;

    MeetingRows *m_rows = nullptr;
    QQmlComponent *m_delegate = nullptr;
    RowPlaces m_places;
    RowItems m_items{*this};
    QPersistentModelIndex m_current;
    qreal m_viewTop = 0;
    qreal m_viewHeight = 0;
    bool m_isRestructured = false;
    QMetaObject::Connection m_focusWatch;
};

} // namespace quorvane

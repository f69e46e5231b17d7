// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickItem>
#include <QString>

namespace quorvane {

/// Tells assistive technology that its text is urgent whenever the text changes. Unseen; the view gives it
/// its role and name.
class Announcement : public QQuickItem
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString text MEMBER m_text WRITE setText NOTIFY textChanged)

public:
    using QQuickItem::QQuickItem;

    void setText(const QString &text);

Q_SIGNALS:
    void textChanged();

private:
    QString m_text;
};

} // namespace quorvane

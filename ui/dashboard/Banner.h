// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/AppModel.h"

#include <QObject>
#include <QTimer>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// The line above a page: the model's notice, else what is wrong with a calendar source. What went well
/// leaves by itself, what went wrong stays until it is put away or mended.
class Banner final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("")
    /// Empty when there is nothing to say.
    Q_PROPERTY(QString text READ text NOTIFY changed)
    Q_PROPERTY(bool isProblem READ isProblem NOTIFY changed)
    /// What the user can do about it; empty when nothing.
    Q_PROPERTY(QString actionText READ actionText NOTIFY changed)
    /// While somebody looks at it, by pointer or keyboard, it does not leave.
    Q_PROPERTY(bool held MEMBER m_isHeld NOTIFY heldChanged)

public:
    explicit Banner(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] const QString &text() const { return m_text; }
    [[nodiscard]] bool isProblem() const { return m_isProblem; }
    [[nodiscard]] const QString &actionText() const { return m_actionText; }

    Q_INVOKABLE void act();
    Q_INVOKABLE void dismiss();

Q_SIGNALS:
    void changed();
    void heldChanged();

private:
    void update();
    void say(const QString &text, NoticeKind kind, const QString &actionText);
    void leaveLater();
    [[nodiscard]] QString trouble() const;

    AppModel &m_model;
    QString m_text;
    QString m_actionText;
    bool m_isProblem = false;
    bool m_isHeld = false;
    /// The trouble that the user has put away; another one is told of again.
    QString m_dismissedTrouble;
    QTimer m_leaving;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

class AppModel;

/// How alerts behave, and what can be done to them at once.
class AlertSettings final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to the settings")
    Q_PROPERTY(bool soundEnabled READ soundEnabled WRITE setSoundEnabled NOTIFY changed)
    Q_PROPERTY(bool paused READ isPaused NOTIFY changed)
    Q_PROPERTY(QString pauseNote READ pauseNote NOTIFY changed)
    Q_PROPERTY(QString pauseAction READ pauseAction NOTIFY changed)

public:
    /// `model` must outlive this.
    explicit AlertSettings(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] bool soundEnabled() const;
    void setSoundEnabled(bool enabled);
    [[nodiscard]] bool isPaused() const;
    /// Until when; empty while alerts are not paused.
    [[nodiscard]] QString pauseNote() const;
    /// What `togglePause` would do.
    [[nodiscard]] QString pauseAction() const;

    Q_INVOKABLE void togglePause();
    Q_INVOKABLE void previewAlert();

Q_SIGNALS:
    void changed();

private:
    AppModel &m_model;
};

} // namespace quorvane

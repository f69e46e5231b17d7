// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

class AppModel;

/// What stands between the user and a missed meeting: alerts on the displays and messages to the phone.
class Protection final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with a model")
    Q_PROPERTY(bool isPaused READ isPaused NOTIFY changed)
    Q_PROPERTY(QString screenText READ screenText NOTIFY changed)
    Q_PROPERTY(QString phoneText READ phoneText NOTIFY changed)
    Q_PROPERTY(QString phoneDetail READ phoneDetail NOTIFY changed)
    Q_PROPERTY(bool isPhoneReady READ isPhoneReady NOTIFY changed)
    Q_PROPERTY(bool hasPhoneFailed READ hasPhoneFailed NOTIFY changed)

public:
    /// `model` must outlive this.
    explicit Protection(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] bool isPaused() const { return m_state.isPaused; }
    [[nodiscard]] const QString &screenText() const { return m_state.screenText; }
    [[nodiscard]] const QString &phoneText() const { return m_state.phoneText; }
    /// Who tells the phone, and what stops it.
    [[nodiscard]] const QString &phoneDetail() const { return m_state.phoneDetail; }
    [[nodiscard]] bool isPhoneReady() const { return m_state.isPhoneReady; }
    [[nodiscard]] bool hasPhoneFailed() const { return m_state.hasPhoneFailed; }

    /// Keeps screen alerts away for a while, or has them back at once.
    Q_INVOKABLE void togglePause();

Q_SIGNALS:
    void changed();

private:
    struct State
    {
        QString screenText;
        QString phoneText;
        QString phoneDetail;
        bool isPaused = false;
        bool isPhoneReady = false;
        bool hasPhoneFailed = false;

        bool operator==(const State &) const = default;
    };

    void update();
    [[nodiscard]] State state() const;
    [[nodiscard]] QString screenState() const;
    [[nodiscard]] QString phoneState() const;

    AppModel &m_model;
    State m_state;
};

} // namespace quorvane

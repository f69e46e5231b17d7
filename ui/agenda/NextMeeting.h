// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/HeroRules.h"

#include <QObject>

namespace quorvane {

class AppModel;

/// The meeting that the agenda's hero shows. Tells of a change only when something that is seen has changed.
class NextMeeting final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with a model")
    Q_PROPERTY(quorvane::HeroFace face READ face NOTIFY faceChanged)

public:
    /// `model` must outlive this.
    explicit NextMeeting(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] const HeroFace &face() const { return m_face; }

    Q_INVOKABLE void join();
    /// A meeting that is switched off here stays for `keepTime`, so that a slip can be undone.
    Q_INVOKABLE void toggleAlert();

    /// In seconds.
    static constexpr double keepTime = 60;

Q_SIGNALS:
    void faceChanged();

private:
    void readCalendars();
    void update();
    [[nodiscard]] HeroSituation situation() const;

    AppModel &m_model;
    CalendarDots m_dots;
    HeroFace m_face;
    QString m_kept;
    /// Unix time until which `m_kept` stays.
    double m_keptUntil = 0;
};

} // namespace quorvane

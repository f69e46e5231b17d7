// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/EmptyFace.h"

#include <QObject>

namespace quorvane {

class AppModel;

/// What stands in the list's place when there is no meeting. Whoever has no calendar either, or has never had
/// an alert, is led to the first one in three steps: a calendar, a meeting, a look at what an alert is like.
/// For a new user they stay when meetings have come in, until the look has been taken, so that each step is
/// seen done.
class EmptyAgenda final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with a model")
    Q_PROPERTY(quorvane::EmptyFace face READ face NOTIFY faceChanged)

public:
    /// `model` must outlive this.
    explicit EmptyAgenda(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] const EmptyFace &face() const { return m_face; }

    /// Shows the sample alert, which ends the steps.
    Q_INVOKABLE void previewAlert();
    Q_INVOKABLE void leaveSteps();

Q_SIGNALS:
    void faceChanged();

private:
    void update();
    void lookForStart();
    [[nodiscard]] bool isReading() const;
    [[nodiscard]] bool isNewUser() const;
    [[nodiscard]] bool isFailing() const;
    [[nodiscard]] qsizetype meetingCount() const;
    [[nodiscard]] qsizetype calendarCount() const;
    [[nodiscard]] EmptyFace currentFace() const;
    [[nodiscard]] EmptyFace steps() const;

    enum class Steps { notBegun, underWay, left };

    AppModel &m_model;
    EmptyFace m_face;
    Steps m_steps = Steps::notBegun;
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/SettingsOutcome.h"

#include <QCoroTask>
#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <functional>
#include <optional>

namespace quorvane {

class AppModel;

/// What a group of settings is asked to do, one at a time, and what became of the last: a success is told for
/// some seconds, a problem until the next action.
class GroupActions final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Belongs to a group of settings")
    Q_PROPERTY(bool running READ isRunning NOTIFY changed)
    Q_PROPERTY(QString outcome READ outcome NOTIFY changed)
    Q_PROPERTY(bool failed READ hasFailed NOTIFY changed)

public:
    /// How long a success is told, in seconds.
    static constexpr double successLength = 6;

    using Action = std::function<QCoro::Task<SettingsOutcome>()>;

    /// `model`, which tells the time, must outlive this.
    explicit GroupActions(const AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    /// A sentence; empty when there is nothing to tell.
    [[nodiscard]] QString outcome() const;
    [[nodiscard]] bool hasFailed() const;

    /// Does nothing while another action runs. `done` is called when this one has succeeded.
    void run(const Action &action, const std::function<void()> &done = {});

Q_SIGNALS:
    void changed();

private:
    void tell(const std::optional<SettingsOutcome> &outcome);
    void tick();

    const AppModel &m_model;
    bool m_isRunning = false;
    std::optional<SettingsOutcome> m_outcome;
    /// Unix time since which the outcome is told.
    double m_toldAt = 0;
};

} // namespace quorvane

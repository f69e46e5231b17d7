// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/GroupActions.h"

#include "model/AppModel.h"

#include <cmath>

namespace quorvane {

GroupActions::GroupActions(const AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    connect(&model, &AppModel::ticked, this, &GroupActions::tick);
}

QString GroupActions::outcome() const
{
    return m_outcome ? m_outcome->text : QString();
}

bool GroupActions::hasFailed() const
{
    return m_outcome && m_outcome->kind == NoticeKind::problem;
}

void GroupActions::run(const Action &action, const std::function<void()> &done)
{
    if (m_isRunning)
        return;
    m_isRunning = true;
    tell(std::nullopt);
    QCoro::connect(action(), this, [this, done](const SettingsOutcome &outcome) {
        m_isRunning = false;
        if (done && outcome.kind == NoticeKind::success)
            done();
        tell(outcome);
    });
}

void GroupActions::tell(const std::optional<SettingsOutcome> &outcome)
{
    m_outcome = outcome;
    m_toldAt = m_model.now();
    Q_EMIT changed();
}

void GroupActions::tick()
{
    // The clock may have been set back meanwhile.
    if (m_outcome && !hasFailed() && std::abs(m_model.now() - m_toldAt) >= successLength)
        tell(std::nullopt);
}

} // namespace quorvane

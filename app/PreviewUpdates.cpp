// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/PreviewUpdates.h"

using namespace Qt::StringLiterals;

namespace quorvane {

PreviewUpdates::PreviewUpdates(Moment moment, QObject *parent)
    : UpdateSettings(parent)
    , m_moment(std::move(moment))
{
}

QString PreviewUpdates::version() const
{
    return u"Version 1.4.0 (812)"_s;
}

bool PreviewUpdates::canCheckForUpdates() const
{
    return m_moment.phase == Phase::idle || m_moment.phase == Phase::available;
}

} // namespace quorvane

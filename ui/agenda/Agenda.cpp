// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/agenda/Agenda.h"

namespace quorvane {

Agenda::Agenda(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_next(model)
    , m_meetings(model)
    , m_protection(model)
    , m_sources(model)
    , m_empty(model)
{
}

} // namespace quorvane

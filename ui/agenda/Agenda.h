// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/agenda/EmptyAgenda.h"
#include "ui/agenda/MeetingRows.h"
#include "ui/agenda/NextMeeting.h"
#include "ui/agenda/Protection.h"
#include "ui/agenda/SourceRows.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

namespace quorvane {

/// What the agenda page shows: the next meeting, all meetings by day, and how safe the user is.
class Agenda final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("Made with a model")
    Q_PROPERTY(quorvane::NextMeeting *next READ next CONSTANT)
    Q_PROPERTY(quorvane::MeetingRows *meetings READ meetings CONSTANT)
    Q_PROPERTY(quorvane::Protection *protection READ protection CONSTANT)
    Q_PROPERTY(quorvane::SourceRows *sources READ sources CONSTANT)
    Q_PROPERTY(quorvane::EmptyAgenda *empty READ empty CONSTANT)

public:
    /// `model` must outlive this.
    explicit Agenda(AppModel &model, QObject *parent = nullptr);

    [[nodiscard]] NextMeeting *next() { return &m_next; }
    [[nodiscard]] MeetingRows *meetings() { return &m_meetings; }
    [[nodiscard]] Protection *protection() { return &m_protection; }
    [[nodiscard]] SourceRows *sources() { return &m_sources; }
    [[nodiscard]] EmptyAgenda *empty() { return &m_empty; }

private:
    NextMeeting m_next;
    MeetingRows m_meetings;
    Protection m_protection;
    SourceRows m_sources;
    EmptyAgenda m_empty;
};

} // namespace quorvane

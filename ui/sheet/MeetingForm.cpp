// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/sheet/MeetingForm.h"

#include "async/Launch.h"
#include "model/AppModel.h"

#include <QPointer>

#include <algorithm>
#include <array>
#include <cmath>

namespace quorvane {

namespace {

constexpr std::array durations{15, 30, 45, 60, 90, 120};

} // namespace

MeetingForm::MeetingForm(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
    , m_startChoice(QLocale::system(), QTimeZone::systemTimeZone())
{
    m_draft.start = std::floor(model.now()) + proposedLead;
    m_startChoice.setNow(model.now());
    m_startChoice.setStart(m_draft.start);
    judge();
    connect(&m_startChoice, &DateTimeChoice::startChanged, this, [this] {
        m_draft.start = m_startChoice.start();
        Q_EMIT startChanged();
        judge();
    });
    connect(&model, &AppModel::ticked, this, &MeetingForm::followTime);
}

void MeetingForm::setTitle(const QString &title)
{
    if (title == m_draft.title)
        return;
    m_draft.title = title;
    m_wasTitleTyped = true;
    Q_EMIT titleChanged();
    judge();
}

void MeetingForm::setDuration(int duration)
{
    if (duration == m_draft.duration)
        return;
    m_draft.duration = duration;
    Q_EMIT durationChanged();
}

void MeetingForm::setLink(const QString &link)
{
    if (link == m_draft.link)
        return;
    m_draft.link = link;
    Q_EMIT linkChanged();
    judge();
}

bool MeetingForm::isValid() const
{
    return m_draft.valid(m_model.now());
}

QStringList MeetingForm::durationLabels() const
{
    QStringList labels;
    for (const int minutes : durations)
        labels.append(tr("%1 minutes").arg(minutes));
    return labels;
}

int MeetingForm::durationIndex() const
{
    const auto found = std::ranges::find(durations, m_draft.duration);
    return found == durations.end() ? -1 : static_cast<int>(found - durations.begin());
}

void MeetingForm::chooseDuration(int index)
{
    if (index >= 0 && static_cast<std::size_t>(index) < durations.size())
        setDuration(durations.at(static_cast<std::size_t>(index)));
}

void MeetingForm::leaveTitle()
{
    // Nobody is told off for a field that they have not been at.
    m_wasTitleLeft = m_wasTitleTyped;
    judge();
}

void MeetingForm::leaveLink()
{
    m_wasLinkLeft = true;
    judge();
}

void MeetingForm::save()
{
    if (!canSave())
        return;
    m_isSaving = true;
    Q_EMIT savingChanged();
    judge();
    launch(add());
}

QCoro::Task<> MeetingForm::add()
{
    const QPointer<MeetingForm> self = this;
    const MeetingDraft draft = m_draft;
    co_await m_model.addMeeting(draft.title, draft.start, draft.duration, draft.link);
    if (!self)
        co_return;
    m_isSaving = false;
    Q_EMIT savingChanged();
    if (!self)
        co_return;
    judge();
    // Whoever owns the form may let it go here.
    Q_EMIT dismissed();
}

void MeetingForm::followTime()
{
    m_startChoice.setNow(m_model.now());
    judge();
}

void MeetingForm::judge()
{
    if (const Errors errors = errorsNow(); errors != m_errors) {
        m_errors = errors;
        Q_EMIT errorsChanged();
    }
    if (std::exchange(m_wasValid, isValid()) != m_wasValid)
        Q_EMIT validChanged();
    if (std::exchange(m_couldSave, canSave()) != m_couldSave)
        Q_EMIT canSaveChanged();
}

MeetingForm::Errors MeetingForm::errorsNow() const
{
    using Problem = MeetingDraft::Problem;
    Errors errors;
    const Problem title = m_draft.titleProblem();
    if (title == Problem::tooLong)
        errors.title = tr("Use at most 1000 characters.");
    else if (title == Problem::missing && m_wasTitleLeft)
        errors.title = tr("Give the meeting a name.");
    if (m_draft.startProblem(m_model.now()) != Problem::none)
        errors.start = tr("Choose a time in the future.");
    const Problem link = m_draft.linkProblem();
    if (link == Problem::tooLong)
        errors.link = tr("Use at most 2000 characters.");
    else if (link == Problem::unsafe && m_wasLinkLeft)
        errors.link = tr("Use an HTTPS, Zoom or Teams link.");
    return errors;
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dashboard/Banner.h"

#include "async/Launch.h"
#include "core/UnixTime.h"
#include "model/SourceList.h"
#include "ui/format/MeetingFormat.h"

#include <algorithm>
#include <chrono>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr auto successStays = 6s;

} // namespace

Banner::Banner(AppModel &model, QObject *parent)
    : QObject(parent)
    , m_model(model)
{
    m_leaving.setSingleShot(true);
    m_leaving.setInterval(successStays);
    connect(&m_leaving, &QTimer::timeout, this, &Banner::dismiss);
    connect(this, &Banner::heldChanged, this, &Banner::leaveLater);
    connect(&m_model, &AppModel::noticeChanged, this, &Banner::update);
    connect(&m_model, &AppModel::sourcesChanged, this, &Banner::update);
    update();
}

void Banner::act()
{
    launch(m_model.refresh());
}

void Banner::dismiss()
{
    if (m_model.notice())
        m_model.dismissNotice();
    else
        m_dismissedTrouble = trouble();
    update();
}

void Banner::update()
{
    const QString ill = trouble();
    if (ill.isEmpty())
        m_dismissedTrouble.clear();
    if (const auto &notice = m_model.notice())
        say(*notice, m_model.noticeKind(), {});
    else if (ill != m_dismissedTrouble)
        say(ill, NoticeKind::problem, tr("Try again"));
    else
        say({}, NoticeKind::success, {});
}

void Banner::say(const QString &text, NoticeKind kind, const QString &actionText)
{
    const bool isProblem = kind == NoticeKind::problem;
    if (text == m_text && isProblem == m_isProblem)
        return;
    m_text = text;
    m_isProblem = isProblem;
    m_actionText = actionText;
    Q_EMIT changed();
    leaveLater();
}

void Banner::leaveLater()
{
    if (m_text.isEmpty() || m_isProblem || m_isHeld)
        m_leaving.stop();
    else
        m_leaving.start();
}

// What happened, what still works; the action is what to do.
QString Banner::trouble() const
{
    const std::vector<SourceHealth> sources = m_model.sources();
    const qsizetype count = SourceList::failing(sources);
    if (count == 0)
        return {};
    if (count > 1)
        return tr("%1 calendar sources did not answer. Alerts use what was read before.").arg(count);
    const auto ill = std::ranges::find(sources, SourceHealth::State::failing, &SourceHealth::state);
    if (!ill->lastRead)
        return tr("%1 could not be read. Other meetings still alert.").arg(ill->account);
    return tr("%1 did not answer. Its alerts use the schedule from %2.")
        .arg(ill->account, MeetingFormat::clockTime(UnixTime::seconds(*ill->lastRead)));
}

} // namespace quorvane

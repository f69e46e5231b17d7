// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AppModel.h"

#include "async/OffThread.h"
#include "model/SourceList.h"

#include <QFileInfo>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr std::chrono::seconds folderAnswerTime{5};

/// The folder's own path, by which its calendars are told; as chosen when its file system does not answer.
QCoro::Task<QString> canonical(QString folder)
{
    const std::function<QString()> look = [folder] { return QFileInfo(folder).canonicalFilePath(); };
    const std::optional<QString> answer = co_await offThread(look, folderAnswerTime);
    co_return answer.value_or(QString()).isEmpty() ? folder : *answer;
}

} // namespace

void AppModel::listSources()
{
    if (m_mode == Mode::preview)
        return;
    const SourceList::Situation situation{
        .stores = m_services.calendarReader.stores(),
        .folders = m_settings.values().calendarFolders,
        .fantastical = m_fantastical,
        .isFantasticalExpected = m_fantastical.wasEverConnected() || isSecondSourceExpected(),
        .isRefreshSlow = m_turns.isSlow(),
    };
    std::vector<SourceHealth> sources = SourceList::of(situation);
    if (sources == m_sources)
        return;
    m_sources = std::move(sources);
    Q_EMIT sourcesChanged();
}

QCoro::Task<> AppModel::setCalendarEnabled(QString id, Switch enabled)
{
    const int count = m_turns.count();
    if (isWritten(m_settings.setCalendarEnabled(id, enabled)))
        co_await refreshSince(count);
}

QCoro::Task<std::optional<QString>> AppModel::askForFolder()
{
    const QPointer<AppModel> self(this);
    const FolderRequest request{
        .title = tr("Connect calendar folder"),
        .message = tr("Choose a folder of calendar files. Quorvane reads them and never changes them."),
        .confirmText = tr("Connect folder"),
        .startFolder = {}};
    const Result<std::optional<QString>> answer = co_await m_services.folderChooser.choose(request);
    if (!answer && self)
        setNotice(u"A folder could not be chosen here. Add it to “calendarFolders” in the settings file."_s);
    if (!answer || !*answer)
        co_return std::optional<QString>();
    const QString folder = co_await canonical(**answer);
    co_return std::optional(folder);
}

QCoro::Task<> AppModel::connectCalendarFolder()
{
    if (m_mode == Mode::preview || m_isChoosingFolder)
        co_return;
    const QPointer<AppModel> self(this);
    m_isChoosingFolder = true;
    const std::optional<QString> folder = co_await askForFolder();
    if (!self)
        co_return;
    m_isChoosingFolder = false;
    const int count = m_turns.count();
    if (folder && isWritten(m_settings.addCalendarFolder(*folder)))
        co_await refreshSince(count);
}

QCoro::Task<> AppModel::disconnectCalendarFolder(QString folder)
{
    const int count = m_turns.count();
    if (isWritten(m_settings.removeCalendarFolder(folder)))
        co_await refreshSince(count);
}

} // namespace quorvane

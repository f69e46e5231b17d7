// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/FantasticalAccess.h"

#include "async/OffThread.h"
#include "calendars/records/FantasticalCache.h"

#include <QDir>
#include <QFileInfo>
#include <QPointer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

/// Absent when the folder does not answer in time; the look is counted in `overdue` then.
QCoro::Task<std::optional<bool>> holdsCache(QString folder, std::shared_ptr<int> overdue)
{
    const QString file = QDir(folder).filePath(FantasticalCache::fileName);
    const std::function<bool()> isThere = [file] { return QFileInfo(file).isFile(); };
    const std::optional<bool> answer = co_await offThread(isThere, folderAnswerTime, overdue);
    co_return std::optional<bool>(answer);
}

} // namespace

FantasticalAccess::FantasticalAccess(const QString &home, FolderChooser &chooser, Store store,
                                     QObject *parent)
    : QObject(parent)
    , m_defaultDirectory(FantasticalCache::defaultDirectory(home))
    , m_chooser(chooser)
    , m_store(std::move(store))
{
}

QCoro::Task<bool> FantasticalAccess::isCacheExpected() const
{
    if (*m_overdue > 0)
        co_return true;
    const std::optional<bool> isThere = co_await holdsCache(m_defaultDirectory, m_overdue);
    co_return isThere.value_or(true);
}

QString FantasticalAccess::explanation()
{
    return tr("Choose Fantastical’s Database folder. Quorvane reads calendar events here and never changes "
              "Fantastical’s files.");
}

QCoro::Task<bool> FantasticalAccess::chooseFolder()
{
    if (std::exchange(m_isChoosing, true))
        co_return false;
    const QPointer<FantasticalAccess> self = this;
    const bool isStored = co_await askAndStore();
    if (self)
        m_isChoosing = false;
    co_return isStored;
}

QCoro::Task<bool> FantasticalAccess::askAndStore()
{
    const QPointer<FantasticalAccess> self = this;
    const FolderRequest request{.title = tr("Connect Fantastical"),
                                .message = explanation(),
                                .confirmText = tr("Connect folder"),
                                .startFolder = m_defaultDirectory};
    const Result<std::optional<QString>> answer = co_await m_chooser.choose(request);
    if (!answer || !*answer)
        co_return false;
    const QString folder = **answer;
    const std::optional<bool> isRight = co_await holdsCache(folder, std::make_shared<int>(0));
    if (!isRight.value_or(false) || !self)
        co_return false;
    co_return m_store(folder).has_value();
}

} // namespace quorvane

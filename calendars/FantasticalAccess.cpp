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

QCoro::Task<bool> holdsCache(QString folder)
{
    const QString file = QDir(folder).filePath(FantasticalCache::fileName);
    const std::function<bool()> isThere = [file] { return QFileInfo(file).isFile(); };
    const std::optional<bool> answer = co_await offThread(isThere, folderAnswerTime);
    co_return answer.value_or(false);
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
    const bool isRight = co_await holdsCache(folder);
    if (!isRight || !self)
        co_return false;
    co_return m_store(folder).has_value();
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/dialogs/FolderBrowser.h"

#include "async/OffThread.h"

#include <QDir>
#include <QFileInfo>

#include <utility>

namespace quorvane {

struct FolderBrowser::Listing
{
    /// Empty when there is no such folder.
    QString folder;
    QStringList entries;
    bool isReadable = false;
};

FolderBrowser::FolderBrowser(FolderRequest request, QObject *parent)
    : QObject(parent)
    , m_request(std::move(request))
{
    m_choice.start();
    read(m_request.startFolder, Missing::leadsUpwards);
}

void FolderBrowser::open(const QString &path)
{
    read(path, Missing::isToldOf);
}

void FolderBrowser::enter(const QString &name)
{
    open(QDir(m_folder).filePath(name));
}

void FolderBrowser::leave()
{
    read(QFileInfo(m_folder).path(), Missing::leadsUpwards);
}

void FolderBrowser::confirm(const QString &path)
{
    open(path);
    m_confirmsWhenRead = true;
}

void FolderBrowser::cancel()
{
    decide(std::nullopt);
}

FolderBrowser::Listing FolderBrowser::list(QString path, Missing missing)
{
    path = QDir::cleanPath(path);
    while (missing == Missing::leadsUpwards && !QFileInfo(path).isDir() && path != QDir::rootPath())
        path = QFileInfo(path).path();
    const QFileInfo info(path);
    if (!info.isAbsolute() || !info.isDir())
        return {};
    constexpr auto folders = QDir::Dirs | QDir::NoDotAndDotDot;
    constexpr auto byName = QDir::Name | QDir::IgnoreCase;
    return {path, QDir(path).entryList(folders, byName), info.isReadable() && info.isExecutable()};
}

void FolderBrowser::read(const QString &path, Missing missing)
{
    m_confirmsWhenRead = false;
    const std::function<Listing()> job = [path, missing] { return list(path, missing); };
    QCoro::connect(offThread(job, folderAnswerTime), this,
                   [this, turn = ++m_turn](const std::optional<Listing> &listing) {
                       if (turn == m_turn)
                           show(listing);
                   });
}

void FolderBrowser::show(const std::optional<Listing> &listing)
{
    const bool isThere = listing && !listing->folder.isEmpty();
    if (isThere) {
        m_folder = listing->folder;
        m_entries = listing->entries;
        m_note = listing->isReadable ? QString() : tr("This folder cannot be read.");
    } else {
        m_note = listing ? tr("There is no such folder.") : tr("The folder does not answer.");
    }
    Q_EMIT changed();
    if (std::exchange(m_confirmsWhenRead, false) && isThere)
        decide(m_folder);
}

void FolderBrowser::decide(const Choice &choice)
{
    if (m_choice.future().isFinished())
        return;
    m_choice.addResult(choice);
    m_choice.finish();
}

} // namespace quorvane

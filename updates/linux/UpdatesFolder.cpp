// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/UpdatesFolder.h"

#include "updates/linux/FileLock.h"
#include "updates/linux/InstallationFailure.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QFile>

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qint64 roomForOthers = 64LL * 1024 * 1024;

QFileInfoList archivesIn(const QString &folder)
{
    return QDir(folder).entryInfoList({u"*.part"_s}, QDir::Files | QDir::Hidden | QDir::System);
}

} // namespace

UpdatesFolder::UpdatesFolder(QString path, FileDescriptor lock)
    : m_path(std::move(path))
    , m_lock(std::move(lock))
{
}

Result<std::shared_ptr<UpdatesFolder>> UpdatesFolder::open(const QString &root)
{
    const QString path = root + u"/.updates"_s;
    const QByteArray name = QFile::encodeName(path);
    if (::mkdir(name.constData(), S_IRWXU) != 0 && errno != EEXIST)
        return installationFailure(errno);
    const FileDescriptor folder(::open(name.constData(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (!folder.isValid() || ::fchmod(folder.value(), S_IRWXU) != 0)
        return installationFailure(errno);
    FileDescriptor lock(
        ::openat(folder.value(), "lock", O_RDWR | O_CREAT | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR));
    if (!lock.isValid())
        return installationFailure(errno);
    if (tryLock(lock, LockKind::exclusive) == LockOutcome::refused)
        return Failure(UpdateError::busy);
    return std::make_shared<UpdatesFolder>(path, std::move(lock));
}

QString UpdatesFolder::archive(const UpdateItem &item) const
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(item.archive.toEncoded() + '\n' + QByteArray::number(item.length) + '\n' + item.signature);
    return m_path + u'/' + QString::fromLatin1(hash.result().toHex()) + u".part"_s;
}

void UpdatesFolder::removeArchivesBut(const QString &kept) const
{
    for (const QFileInfo &archive : archivesIn(m_path)) {
        if (archive.filePath() != kept)
            QFile::remove(archive.filePath());
    }
}

void UpdatesFolder::removeArchivesOlderThan(int days) const
{
    const QDateTime oldest = QDateTime::currentDateTimeUtc().addDays(-days);
    for (const QFileInfo &archive : archivesIn(m_path)) {
        if (archive.lastModified() < oldest)
            QFile::remove(archive.filePath());
    }
}

// Never the same name twice: what a killed process had started may still write into the former one.
Result<QString> UpdatesFolder::makeWorkshop() const
{
    QByteArray name = QFile::encodeName(m_path + u"/work-XXXXXX"_s);
    if (::mkdtemp(name.data()) == nullptr)
        return installationFailure(errno);
    return QFile::decodeName(name);
}

void UpdatesFolder::removeWorkshops() const
{
    const QFileInfoList workshops =
        QDir(m_path).entryInfoList({u"work-*"_s}, QDir::Dirs | QDir::Hidden | QDir::NoSymLinks);
    for (const QFileInfo &workshop : workshops)
        QDir(workshop.filePath()).removeRecursively();
}

bool UpdatesFolder::hasRoomFor(qint64 bytes) const
{
    struct statvfs disk{};
    if (::statvfs(QFile::encodeName(m_path).constData(), &disk) != 0)
        return true; // Then it is tried.
    // As a double: both factors are the file system's word.
    const double available = static_cast<double>(disk.f_bavail) * static_cast<double>(disk.f_frsize);
    return static_cast<double>(bytes) + static_cast<double>(roomForOthers) <= available;
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/FolderScan.h"

#include "calendars/ical/CalendarText.h"
#include "calendars/linux/BoundedFile.h"
#include "calendars/records/CalendarColor.h"
#include "posix/FileDescriptor.h"

#include <QFile>
#include <QFileInfo>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <memory>

namespace quorvane {

const QString FolderScan::defaultAccount = QStringLiteral("Calendar folder");

namespace {

QString baseName(const std::string &path)
{
    return QString::fromLocal8Bit(path.substr(path.rfind('/') + 1));
}

std::string withoutSuffix(const std::string &name)
{
    return name.substr(0, name.size() - 4);
}

QString idOf(const std::string &path)
{
    return QStringLiteral("folder:") + QString::fromLocal8Bit(path);
}

/// The first line of the mark `name` in the folder.
QString markText(const std::string &folder, const char *name)
{
    constexpr std::int64_t limit = 4096;
    const auto content = readBounded(AT_FDCWD, (folder + '/' + name).c_str(), limit);
    return content ? QString::fromUtf8(content->substr(0, content->find('\n'))).trimmed() : QString();
}

/// The calendar's name in the head of its only file.
QString nameInFile(const std::string &path)
{
    constexpr std::size_t headSize = 4096;
    const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC));
    std::string head(headSize, '\0');
    const ssize_t count = file.isValid() ? ::read(file.value(), head.data(), head.size()) : -1;
    head.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return QString::fromStdString(CalendarText::parse(head).name).trimmed();
}

struct CloseFolder
{
    void operator()(DIR *folder) const { ::closedir(folder); }
};

} // namespace

/// What lies in one folder.
struct FolderScan::Listing
{
    std::vector<std::string> files;
    std::vector<std::string> folders;
    bool isMarked = false;

    /// Fails with the system's error.
    static Result<Listing> of(const std::string &path)
    {
        const std::unique_ptr<DIR, CloseFolder> folder(::opendir(path.c_str()));
        if (!folder)
            return Failure(std::error_code(errno, std::generic_category()));
        Listing listing;
        while (const dirent *entry = ::readdir(folder.get()))
            listing.add(::dirfd(folder.get()), *entry);
        std::sort(listing.files.begin(), listing.files.end());
        std::sort(listing.folders.begin(), listing.folders.end());
        return listing;
    }

private:
    void add(int folder, const dirent &entry)
    {
        const std::string name(entry.d_name);
        if (name.starts_with('.'))
            return;
        unsigned char type = entry.d_type;
        struct stat state{};
        if ((type == DT_LNK || type == DT_UNKNOWN) && ::fstatat(folder, name.c_str(), &state, 0) == 0)
            type = S_ISDIR(state.st_mode) ? DT_DIR : S_ISREG(state.st_mode) ? DT_REG : DT_CHR;
        if (type == DT_DIR)
            folders.push_back(name);
        else if (type == DT_REG && isCalendarFile(name))
            files.push_back(name);
        else if (type == DT_REG && (name == "displayname" || name == "color"))
            isMarked = true;
    }
};

FolderScan::FolderScan(FolderWatch &watch)
    : m_watch(watch)
{
}

bool FolderScan::addRoot(const QString &root, const QString &account)
{
    const QFileInfo info(root);
    const QString canonical = info.canonicalFilePath();
    if (canonical.isEmpty()) {
        m_watch.await(QFile::encodeName(info.absoluteFilePath()).toStdString());
        return false;
    }
    const std::string path = QFile::encodeName(canonical).toStdString();
    bool isListed = true;
    if (info.isFile()) {
        const std::size_t slash = path.rfind('/');
        m_watch.addFolder(path.substr(0, slash));
        addFileCalendar(path.substr(0, slash), path.substr(slash + 1), account);
    } else {
        isListed = visit(path, account, 0);
    }
    m_anyRootListed = m_anyRootListed || isListed;
    return isListed;
}

/// Returns whether the folder could be listed, now or on an earlier visit.
bool FolderScan::visit(const std::string &path, const QString &account, int depth)
{
    if (m_visited.size() >= mostFolders || !isFirstVisit(path))
        return true;
    m_watch.addFolder(path); // before it is listed, so that no change falls between
    Result<Listing> listing = Listing::of(path);
    if (!listing) {
        m_unlisted.push_back(path);
        return false;
    }
    const bool isCollection = listing->isMarked || listing->files.size() > mostFileCalendars;
    if (isCollection || (depth > 0 && !listing->files.empty())) {
        addFolderCalendar(path, *listing, account);
    } else {
        for (const std::string &name : listing->files)
            addFileCalendar(path, name, account);
    }
    const QString below = depth == 0 ? account : baseName(path);
    for (const std::string &name : listing->folders) {
        if (depth < deepest)
            visit(path + '/' + name, below, depth + 1);
    }
    return true;
}

bool FolderScan::isFirstVisit(const std::string &path)
{
    struct stat state{};
    return ::stat(path.c_str(), &state) != 0 || m_visited.emplace(state.st_dev, state.st_ino).second;
}

QString FolderScan::nameOf(const std::string &folder)
{
    const QString own = markText(folder, "displayname");
    return own.isEmpty() ? baseName(folder) : own;
}

void FolderScan::addFolderCalendar(const std::string &path, Listing &listing, const QString &account)
{
    const QString canonical =
        QFileInfo(QFile::decodeName(QByteArray::fromStdString(path))).canonicalFilePath();
    const std::string folder = QFile::encodeName(canonical).toStdString();
    listing.files.resize(std::min(listing.files.size(), mostFiles - m_fileCount));
    m_fileCount += listing.files.size();
    m_calendars.push_back({idOf(folder), nameOf(path), account, folder, std::move(listing.files), false,
                           CalendarColor::normalized(markText(folder, "color"))});
}

void FolderScan::addFileCalendar(const std::string &folder, const std::string &name, const QString &account)
{
    const QString canonical =
        QFileInfo(QFile::decodeName(QByteArray::fromStdString(folder + '/' + name))).canonicalFilePath();
    const std::string path = QFile::encodeName(canonical).toStdString();
    const QString id = idOf(path);
    const bool isKnown = std::any_of(m_calendars.begin(), m_calendars.end(),
                                     [&id](const FolderCalendar &calendar) { return calendar.id == id; });
    if (path.empty() || isKnown)
        return;
    const std::size_t slash = path.rfind('/');
    const QString own = nameInFile(path);
    m_calendars.push_back({id,
                           own.isEmpty() ? QString::fromLocal8Bit(withoutSuffix(name)) : own,
                           account,
                           path.substr(0, slash),
                           {path.substr(slash + 1)},
                           true});
}

} // namespace quorvane

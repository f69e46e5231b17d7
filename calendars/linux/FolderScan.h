// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/linux/FolderWatch.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace quorvane {

/// One calendar that lies in a folder.
struct FolderCalendar
{
    /// "folder:" and the canonical path of its folder or file.
    QString id;
    QString name;
    QString account;
    /// Canonical path of the folder that holds its files.
    std::string folder;
    /// Names of its .ics files, sorted.
    std::vector<std::string> files;
    bool isSingleFile = false;
    /// As in `CalendarOption`.
    std::optional<QString> color = std::nullopt;
};

/// Looks through the folders that were set up and finds the calendars in them.
///
/// A folder that was set up (a root) may be one of three things:
/// - a folder of calendars: every .ics file in it is a calendar of its own, named by its X-WR-CALNAME or else
/// by the
///   file; every folder below it that holds .ics files is a calendar too;
/// - one calendar itself, a collection with a file per event. It is taken for one when it holds a file
/// `displayname`
///   or `color`, as programs that synchronise calendars write them, or more than `mostFileCalendars` .ics
///   files;
/// - a single .ics file.
/// Folders are looked through to the depth of `deepest`; a folder with a `displayname` or `color` is a
/// calendar even while it is empty. A calendar folder is named by its `displayname` or else by itself; its
/// account is the folder between the root and it, as in root/account/calendar, or that of the root. Hidden
/// files and folders are passed over, links are followed, and what can be reached in two ways is listed once.
class FolderScan final
{
public:
    static constexpr std::size_t mostFileCalendars = 64;
    static constexpr int deepest = 4;
    static constexpr std::size_t mostFolders = 1'024;
    static constexpr std::size_t mostFiles = 200'000;
    static const QString defaultAccount;

    explicit FolderScan(FolderWatch &watch);

    /// `account` is that of the calendars right in the root. Returns whether the root could be listed.
    bool addRoot(const QString &root, const QString &account = defaultAccount);

    [[nodiscard]] const std::vector<FolderCalendar> &calendars() const { return m_calendars; }
    /// Whether at least one root could be listed.
    [[nodiscard]] bool anyRootListed() const { return m_anyRootListed; }
    /// The name of a folder's calendar, which need not exist yet.
    [[nodiscard]] static QString nameOf(const std::string &folder);
    /// Canonical paths of folders that are there and could not be listed.
    [[nodiscard]] const std::vector<std::string> &unlisted() const { return m_unlisted; }

private:
    struct Listing;

    bool visit(const std::string &path, const QString &account, int depth);
    void addFolderCalendar(const std::string &path, Listing &listing, const QString &account);
    void addFileCalendar(const std::string &folder, const std::string &name, const QString &account);
    [[nodiscard]] bool isFirstVisit(const std::string &path);

    FolderWatch &m_watch;
    std::vector<FolderCalendar> m_calendars;
    std::vector<std::string> m_unlisted;
    std::set<std::pair<std::uint64_t, std::uint64_t>> m_visited;
    std::size_t m_fileCount = 0;
    bool m_anyRootListed = false;
};

} // namespace quorvane

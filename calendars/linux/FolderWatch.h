// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

#include <glib.h>

#include <functional>
#include <map>
#include <set>
#include <string>

struct inotify_event;

namespace quorvane {

/// Whether `name` is that of a calendar file: visible, and ending in ".ics" in any case.
[[nodiscard]] bool isCalendarFile(const std::string &name);

/// Notices changes in calendar folders by inotify(7), in the files in them too, and the coming of folders
/// that are not there yet. Used on one thread, whose default main context it takes its notices from. Where
/// the system has no more watches to give, changes are found by the next reading only.
class FolderWatch final
{
public:
    /// Calls `changed` on the thread that it was made on.
    explicit FolderWatch(std::function<void()> changed);
    ~FolderWatch();
    Q_DISABLE_COPY_MOVE(FolderWatch)

    /// Between these two, everything that is to be watched is named anew; what is not named is dropped.
    void beginRound();
    void endRound();

    /// Watches the calendar files, marks and folders in the folder `path`.
    void addFolder(const std::string &path);
    /// Watches for the coming of `path`, which is not there: in the nearest folder above it that is.
    void await(const std::string &path);

private:
    struct Interest
    {
        bool isFolder = false;
        std::set<std::string> awaited;
    };

    static gboolean dispatch(gint descriptor, GIOCondition condition, gpointer self);
    Interest *interestIn(const std::string &path);
    void readNotices();
    [[nodiscard]] bool matters(const inotify_event &event) const;

    FileDescriptor m_inotify;
    GSource *m_source = nullptr;
    std::function<void()> m_changed;
    std::map<int, Interest> m_current;
    std::map<int, Interest> m_next;
};

} // namespace quorvane

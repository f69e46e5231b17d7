// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendars/linux/FolderWatch.h"

#include <glib-unix.h>
#include <sys/inotify.h>

#include <array>

namespace quorvane {
namespace {

constexpr std::uint32_t events = IN_CLOSE_WRITE | IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                 IN_ATTRIB | IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

std::string parentOf(const std::string &path)
{
    const std::size_t slash = path.rfind('/');
    return slash == 0 ? "/" : path.substr(0, slash);
}

} // namespace

bool isCalendarFile(const std::string &name)
{
    return name.size() > 4 && !name.starts_with('.') &&
           g_ascii_strcasecmp(name.c_str() + name.size() - 4, ".ics") == 0;
}

FolderWatch::FolderWatch(std::function<void()> changed)
    : m_inotify(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    , m_changed(std::move(changed))
{
    if (!m_inotify.isValid())
        return;
    m_source = g_unix_fd_source_new(m_inotify.value(), G_IO_IN);
    g_source_set_callback(m_source, G_SOURCE_FUNC(dispatch), this, nullptr);
    g_source_attach(m_source, g_main_context_get_thread_default());
}

FolderWatch::~FolderWatch()
{
    if (!m_source)
        return;
    g_source_destroy(m_source);
    g_source_unref(m_source);
}

void FolderWatch::beginRound()
{
    m_next.clear();
}

void FolderWatch::endRound()
{
    for (const auto &[watch, interest] : m_current) {
        if (!m_next.contains(watch))
            ::inotify_rm_watch(m_inotify.value(), watch);
    }
    m_current.swap(m_next);
    m_next.clear();
}

FolderWatch::Interest *FolderWatch::interestIn(const std::string &path)
{
    // Watching a folder a second time gives the first watch again.
    const int watch = ::inotify_add_watch(m_inotify.value(), path.c_str(), events);
    return watch < 0 ? nullptr : &m_next[watch];
}

void FolderWatch::addFolder(const std::string &path)
{
    if (Interest *interest = interestIn(path))
        interest->isFolder = true;
}

void FolderWatch::await(const std::string &path)
{
    std::string missing = path;
    while (missing.size() > 1) {
        const std::string parent = parentOf(missing);
        if (Interest *interest = interestIn(parent)) {
            interest->awaited.insert(missing.substr(missing.rfind('/') + 1));
            return;
        }
        missing = parent;
    }
}

gboolean FolderWatch::dispatch(gint, GIOCondition, gpointer self)
{
    static_cast<FolderWatch *>(self)->readNotices();
    return G_SOURCE_CONTINUE;
}

void FolderWatch::readNotices()
{
    alignas(inotify_event) std::array<char, 16 * 1024> buffer;
    bool anyMatters = false;
    for (;;) {
        const ssize_t size = ::read(m_inotify.value(), buffer.data(), buffer.size());
        if (size <= 0)
            break;
        for (ssize_t position = 0; position < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer.data() + position);
            anyMatters = anyMatters || matters(*event);
            position += static_cast<ssize_t>(sizeof(inotify_event) + event->len);
        }
    }
    if (anyMatters)
        m_changed();
}

bool FolderWatch::matters(const inotify_event &event) const
{
    if (event.mask & IN_Q_OVERFLOW)
        return true;
    const auto found = m_current.find(event.wd);
    if (found == m_current.end() || (event.mask & IN_IGNORED))
        return false;
    if (event.mask & (IN_DELETE_SELF | IN_MOVE_SELF))
        return true;
    const std::string name = event.len > 0 ? event.name : "";
    if (found->second.awaited.contains(name))
        return true;
    const bool isFolder = (event.mask & IN_ISDIR) && !name.empty() && !name.starts_with('.');
    return found->second.isFolder &&
           (isFolder || isCalendarFile(name) || name == "displayname" || name == "color");
}

} // namespace quorvane

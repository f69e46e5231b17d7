// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MemoryPrivacy.h"

#include <QLoggingCategory>

#include <cstring>

#include <sys/resource.h>

namespace quorvane {

namespace {

QLoggingCategory::CategoryFilter filterByRules = nullptr;

/// Qt's own debugging messages name what is on screen and on the bus; ours never do.
void filter(QLoggingCategory *category)
{
    filterByRules(category);
    if (std::strncmp(category->categoryName(), "quorvane.", 9) == 0)
        return;
    category->setEnabled(QtDebugMsg, false);
    category->setEnabled(QtInfoMsg, false);
}

} // namespace

// One byte and not none: at none the kernel still hands a dump to a program that collects them (core(5)). Not
// by prctl(PR_SET_DUMPABLE) either, under which the desktop's portals refuse to talk to a process.
void keepMemoryPrivate()
{
    rlimit limit{};
    if (::getrlimit(RLIMIT_CORE, &limit) == 0) {
        limit.rlim_cur = limit.rlim_max < 1 ? limit.rlim_max : 1;
        ::setrlimit(RLIMIT_CORE, &limit);
    }
    // They would print every value that the keyring hands over, the calendar service's events, and the titles
    // of windows.
    for (const char *variable : {"QDBUS_DEBUG", "G_DBUS_DEBUG", "G_MESSAGES_DEBUG", "WAYLAND_DEBUG"})
        qunsetenv(variable);
    filterByRules = QLoggingCategory::installFilter(filter);
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SettingsWatch.h"

#include <QDir>
#include <QFileInfo>

namespace quorvane {

namespace {

// An editor empties a file before it fills it anew.
constexpr int settleMilliseconds = 150;

} // namespace

void SettingsWatch::start(const QString &file)
{
    m_file = file;
    QDir().mkpath(QFileInfo(file).path());
    m_delay.setSingleShot(true);
    m_delay.setInterval(settleMilliseconds);
    const auto note = [this] {
        if (!m_delay.isActive())
            m_delay.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, note);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, note);
    connect(&m_delay, &QTimer::timeout, this, [this] {
        follow();
        Q_EMIT changed();
    });
    follow();
}

// Watches end with the file that was watched, so that each change asks for them anew.
void SettingsWatch::follow()
{
    const QString folder = QFileInfo(m_file).path();
    if (!m_watcher.directories().contains(folder))
        m_watcher.addPath(folder);
    m_watcher.removePath(m_file);
    if (QFileInfo::exists(m_file))
        m_watcher.addPath(m_file);
}

} // namespace quorvane

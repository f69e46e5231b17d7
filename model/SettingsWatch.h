// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFileSystemWatcher>
#include <QObject>
#include <QString>
#include <QTimer>

namespace quorvane {

/// Tells when the settings file changes, whoever changes it: this program, another copy of it, or an editor.
/// Files are replaced rather than written, so the folder is watched as well. Main thread only.
class SettingsWatch final : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;

    /// Watches `file` from now on; its folder is made if it is not there.
    void start(const QString &file);

Q_SIGNALS:
    /// The file may hold something else. A burst of changes is told once, within half a second.
    void changed();

private:
    void follow();

    QString m_file;
    QFileSystemWatcher m_watcher;
    QTimer m_delay;
};

} // namespace quorvane

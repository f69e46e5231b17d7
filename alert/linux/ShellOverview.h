// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QVariantMap>

namespace quorvane {

/// The overview of windows of GNOME's shell, which lies in front of every window and keeps the keyboard to
/// itself. Waits for nothing, and does nothing where there is no such shell.
class ShellOverview final : public QObject
{
    Q_OBJECT

public:
    explicit ShellOverview(QObject *parent = nullptr);

    /// Has the shell leave its overview.
    void leave() const;

Q_SIGNALS:
    /// The overview has come up.
    void entered();

private Q_SLOTS:
    void noteChange(const QString &interface, const QVariantMap &changed);
};

} // namespace quorvane

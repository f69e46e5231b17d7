// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Switch.h"
#include "instance/InstanceChannel.h"
#include "posix/FileDescriptor.h"

#include <QLocalServer>

#include <memory>

namespace quorvane {

/// A locked file in a folder of the user's, and beside it a socket. It works where there is no session bus,
/// and the lock goes with its holder, also by a kill (flock(2)).
class RuntimeFolderChannel final : public InstanceChannel
{
    Q_OBJECT

public:
    explicit RuntimeFolderChannel(QString folder);
    ~RuntimeFolderChannel() override;

    [[nodiscard]] Claim claim() override;
    void release() override;
    [[nodiscard]] Result<void> handOver(const Activation &activation) override;
    void ask() override;

private:
    struct Address
    {
        QString name;
        /// In no folder, but known to the kernel.
        Switch isAbstract;
    };

    void listen();
    void serve();
    [[nodiscard]] Address address() const;
    void connectTo(QLocalSocket &socket) const;
    [[nodiscard]] QString path(QLatin1StringView ending) const;

    QString m_folder;
    FileDescriptor m_lock;
    std::unique_ptr<QLocalServer> m_server;
};

} // namespace quorvane

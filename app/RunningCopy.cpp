// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/RunningCopy.h"

#include "app/StartWish.h"
#include "app/UserFolders.h"
#include "instance/linux/RuntimeFolderChannel.h"
#include "instance/linux/SessionBusChannel.h"
#include "instance/linux/SessionBusProbe.h"
#include "launch/LaunchSupervisor.h"
#include "launch/linux/SystemdManager.h"
#include "process/linux/PosixProcessRunner.h"

#include <QCoreApplication>

#include <unistd.h>

namespace quorvane::RunningCopy {

bool activate(int argc, char **argv, const QStringList &arguments)
{
    const QCoreApplication application(argc, argv);
    const Activation activation = activationOfStart(arguments);
    return (isSessionBusResponsive() && SessionBusChannel().handOver(activation)) ||
           RuntimeFolderChannel(UserFolders::runtimeFolder()).handOver(activation);
}

bool handOverToAgent(int argc, char **argv, const QStringList &arguments)
{
    const SystemdManager manager(std::make_shared<PosixProcessRunner>(), SystemdManager::systemUnitFolders());
    if (!LaunchSupervisor(manager, arguments, ::getpid()).redirectToRegisteredAgent())
        return false;
    // Whether it answers changes nothing: it is the one that raises the alerts.
    static_cast<void>(activate(argc, argv, arguments));
    return true;
}

} // namespace quorvane::RunningCopy

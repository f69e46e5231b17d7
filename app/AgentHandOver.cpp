// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/AgentHandOver.h"

#include "app/StartWish.h"
#include "app/UserFolders.h"
#include "instance/linux/RuntimeFolderChannel.h"
#include "instance/linux/SessionBusChannel.h"
#include "launch/LaunchSupervisor.h"
#include "launch/linux/SystemdManager.h"
#include "process/linux/PosixProcessRunner.h"

#include <QCoreApplication>

#include <unistd.h>

namespace quorvane {

namespace {

void activateAgent(int argc, char **argv, const QStringList &arguments)
{
    const QCoreApplication application(argc, argv);
    const Activation activation = activationOfStart(arguments);
    if (!SessionBusChannel().handOver(activation))
        static_cast<void>(RuntimeFolderChannel(UserFolders::runtimeFolder()).handOver(activation));
}

} // namespace

bool handOverToAgent(int argc, char **argv, const QStringList &arguments)
{
    const SystemdManager manager(std::make_shared<PosixProcessRunner>(), SystemdManager::systemUnitFolders());
    if (!LaunchSupervisor(manager, arguments, ::getpid()).redirectToRegisteredAgent())
        return false;
    activateAgent(argc, argv, arguments);
    return true;
}

} // namespace quorvane

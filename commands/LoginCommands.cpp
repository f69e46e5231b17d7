// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commands/LoginCommands.h"

#include "commands/ExitStatus.h"
#include "launch/LoginItem.h"
#include "launch/ServiceManager.h"

#include <tuple>

using namespace Qt::StringLiterals;

namespace quorvane::LoginCommands {

int enable(const ServiceManager &manager, LoginItem &item, const PrintLine &print)
{
    if (manager.hasAgent()) {
        // It starts the program whatever becomes of the duplicate.
        std::ignore = item.restore();
        print(u"Start at login and crash restart are already configured."_s);
        return ExitStatus::success;
    }
    if (item.add()) {
        print(u"Start at login registered."_s);
        return ExitStatus::success;
    }
    print(u"Start at login requires approval in System Settings."_s);
    return ExitStatus::loginItemFailed;
}

int disableDuplicate(LoginItem &item, const PrintLine &print)
{
    if (item.remove()) {
        print(u"Duplicate login registration removed; the Quorvane launch agent remains active."_s);
        return ExitStatus::success;
    }
    print(u"Login registration could not be removed."_s);
    return ExitStatus::loginItemFailed;
}

} // namespace quorvane::LoginCommands

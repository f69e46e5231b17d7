// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/CalendarStore.h"
#include "calendars/FantasticalReader.h"
#include "network/NetworkSetup.h"

#include <QStringList>

#include <memory>
#include <vector>

/// What parts are made of that the application and the command line both use. Ask with a QCoreApplication;
/// whatever is handed in must outlive the part.
namespace quorvane {

class Clock;
class FolderStore;
class Preferences;

namespace PartSetups {

/// Everywhere that calendars are read from.
struct CalendarStores
{
    std::vector<std::unique_ptr<CalendarStore>> all;
    /// The one of them that reads folders, whoever owns it by now.
    FolderStore *folders = nullptr;

    /// Has it read the program's own folder, as it does from the beginning, and these.
    void use(const QStringList &chosenFolders, const QStringList &ownAddresses) const;
};

/// Make them once per process (see `EvolutionStore`).
[[nodiscard]] CalendarStores calendarStores();
[[nodiscard]] FantasticalReader::Configuration fantasticalReader(const Preferences &preferences);
/// Whom requests to other machines, and to a server on this one, are sent to.
[[nodiscard]] ServerTrust serverTrust();
[[nodiscard]] NetworkSetup network(Secrets &secrets, const Preferences &preferences, const Clock &clock);

} // namespace PartSetups
} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "calendars/FantasticalReader.h"
#include "network/NetworkSetup.h"

/// What parts are made of that the application and the command line both use. Ask with a QCoreApplication;
/// whatever is handed in must outlive the part.
namespace quorvane {

class Clock;
class Preferences;

namespace PartSetups {

[[nodiscard]] FantasticalReader::Configuration fantasticalReader(const Preferences &preferences);
[[nodiscard]] NetworkSetup network(Secrets &secrets, const Preferences &preferences, const Clock &clock);

} // namespace PartSetups
} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "network/DownloadLimits.h"
#include "network/ServerTrust.h"

#include <chrono>
#include <vector>

namespace quorvane {

/// What `ArchiveDownload` is made of.
struct ArchiveDownloadSetup
{
    ServerTrust trust;
    DownloadLimits limits{};
    /// How long to wait before each new try after a connection broke; as many tries as there are pauses.
    std::vector<std::chrono::milliseconds> pauses{std::chrono::seconds(2), std::chrono::seconds(10),
                                                  std::chrono::seconds(30), std::chrono::seconds(60)};
};

} // namespace quorvane

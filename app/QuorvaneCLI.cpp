// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/QuorvaneCLI.h"

#include <algorithm>
#include <cstdio>

using namespace Qt::StringLiterals;

namespace quorvane {

std::optional<int> QuorvaneCLI::run(const QStringList &arguments)
{
    const QStringList applicationOptions{u"--preview"_s, u"--preview-overlay"_s};
    const bool unknown = std::ranges::any_of(arguments, [&](const QString &argument) {
        return argument.startsWith("--"_L1) && !applicationOptions.contains(argument);
    });
    if (!unknown)
        return std::nullopt;
    std::puts("Unknown or incomplete command. No application window was opened.");
    return unknownCommand;
}

} // namespace quorvane

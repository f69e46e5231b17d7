// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Relaunch.h"

#include "app/ProcessImage.h"

namespace quorvane {

namespace {

constexpr const char *startVariable = "QUORVANE_START";

QByteArray startVariableFor(StartKind kind)
{
    return QByteArray(startVariable) + (kind == StartKind::agent ? "=agent" : "=login");
}

} // namespace

std::error_code relaunch(const ProcessImage &start, const QString &executable, StartKind kind)
{
    const ProcessImage::Changes changes{
        .withoutArguments = {"--preview-overlay"},
        .withoutVariables = {"XDG_ACTIVATION_TOKEN", "DESKTOP_STARTUP_ID"},
        .variables = {startVariableFor(kind)},
    };
    return start.replaceBy(executable, changes);
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/StartKind.h"

#include <QByteArray>

namespace quorvane {

namespace {

constexpr const char *startVariable = "QUORVANE_START";

StartKind takeStartKind()
{
    const QByteArray said = qgetenv(startVariable);
    qunsetenv(startVariable);
    if (said == "agent")
        return StartKind::agent;
    return said == "login" ? StartKind::login : StartKind::person;
}

} // namespace

StartKind startKind()
{
    static const StartKind kind = takeStartKind();
    return kind;
}

} // namespace quorvane

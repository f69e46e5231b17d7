// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/AgentState.h"

#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quorvane::AgentState {

Result<std::optional<qint32>> processFrom(const QByteArray &answer)
{
    const QString text = QString::fromUtf8(answer);
    static const QRegularExpression loaded(u"^LoadState=loaded$"_s, QRegularExpression::MultilineOption);
    if (!loaded.match(text).hasMatch())
        return Failure(make_error_code(std::errc::no_such_process));

    static const QRegularExpression number(u"^MainPID=([0-9]+)$"_s, QRegularExpression::MultilineOption);
    bool isNumber = false;
    const qint32 process = number.match(text).captured(1).toInt(&isNumber);
    if (!isNumber || process == 0)
        return std::optional<qint32>();
    return process;
}

} // namespace quorvane::AgentState

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QByteArray>
#include <QCoroFuture>
#include <QCoroTask>
#include <QtConcurrentRun>

namespace quorvane {

/// The record in the body of an answer, by `Record::fromJson`, or the failure to get one. Eight million bytes
/// take a tenth of a second, which the main thread does not have.
template<class Record>
QCoro::Task<Result<Record>> decoded(Result<QByteArray> answer)
{
    if (!answer)
        co_return Failure(answer.error());
    const QFuture<Result<Record>> decoding = QtConcurrent::run(&Record::fromJson, *answer);
    const Result<Record> record = co_await decoding;
    co_return record;
}

} // namespace quorvane

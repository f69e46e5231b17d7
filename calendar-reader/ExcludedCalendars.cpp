// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/ExcludedCalendars.h"

#include "core/StrictJson.h"
#include "posix/SystemError.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <poll.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>

namespace quorvane::ExcludedCalendars {
namespace {

Result<void> awaitInput(int descriptor, Deadline deadline)
{
    using namespace std::chrono;
    const auto left = duration_cast<milliseconds>(deadline - steady_clock::now()).count();
    pollfd wanted{descriptor, POLLIN, 0};
    const int ready = ::poll(&wanted, 1, static_cast<int>(std::max<std::int64_t>(0, left)));
    if (ready < 0 && errno != EINTR)
        return Failure(systemError());
    if (ready == 0)
        return Failure(std::make_error_code(std::errc::timed_out));
    return {};
}

} // namespace

Result<QByteArray> read(int descriptor, Deadline deadline)
{
    QByteArray input;
    std::array<char, 16'384> buffer{};
    while (input.size() <= longest) {
        if (const Result<void> ready = awaitInput(descriptor, deadline); !ready)
            return Failure(ready.error());
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
        if (count == 0)
            return input;
        if (count < 0 && errno != EINTR && errno != EAGAIN)
            return Failure(systemError());
        input.append(buffer.data(), std::max<ssize_t>(0, count));
    }
    return Failure(std::make_error_code(std::errc::message_size));
}

Result<QStringList> parse(const QByteArray &json)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(json, &error);
    if (error.error != QJsonParseError::NoError || !document.isArray())
        return Failure(JsonError::notJson);
    QStringList identifiers;
    for (const QJsonValue value : document.array()) {
        if (!value.isString())
            return Failure(JsonError::wrongType);
        identifiers.append(value.toString());
    }
    return identifiers;
}

} // namespace quorvane::ExcludedCalendars

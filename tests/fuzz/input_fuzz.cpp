// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/ExcludedCalendars.h"
#include "calendars/records/FantasticalSnapshot.h"

using namespace quorvane;

/// Any bytes as what one of the two programs says to the other.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    (void)ExcludedCalendars::parse(bytes);
    const Result<FantasticalSnapshot> snapshot = FantasticalSnapshot::fromJson(bytes);
    if (snapshot && !FantasticalSnapshot::fromJson(snapshot->toJson()))
        qFatal("a snapshot that is not read back");
    return 0;
}

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/ReaderOutcome.h"

#include "calendars/records/FantasticalReadError.h"

namespace quorvane {

ReaderOutcome outcomeOf(const std::error_code &error)
{
    if (error == FantasticalReadError::accessDenied)
        return ReaderOutcome::accessDenied;
    if (error == FantasticalReadError::databaseUnavailable)
        return ReaderOutcome::databaseUnavailable;
    if (error == FantasticalReadError::unsupportedFormat)
        return ReaderOutcome::unsupportedFormat;
    return ReaderOutcome::readerFailed;
}

std::string_view wordOf(ReaderOutcome outcome)
{
    switch (outcome) {
    case ReaderOutcome::done:
        return {};
    case ReaderOutcome::accessDenied:
        return readerToken(FantasticalReadError::accessDenied);
    case ReaderOutcome::databaseUnavailable:
        return readerToken(FantasticalReadError::databaseUnavailable);
    case ReaderOutcome::unsupportedFormat:
        return readerToken(FantasticalReadError::unsupportedFormat);
    case ReaderOutcome::invalidInput:
        return "invalid_input";
    case ReaderOutcome::outputFailed:
        return "output_failed";
    case ReaderOutcome::readerFailed:
        break;
    }
    return "reader_failed";
}

int statusOf(ReaderOutcome outcome)
{
    switch (outcome) {
    case ReaderOutcome::done:
        return 0;
    case ReaderOutcome::accessDenied:
    case ReaderOutcome::databaseUnavailable:
    case ReaderOutcome::unsupportedFormat:
        return 1;
    case ReaderOutcome::invalidInput:
    case ReaderOutcome::outputFailed:
    case ReaderOutcome::readerFailed:
        break;
    }
    return 2;
}

} // namespace quorvane

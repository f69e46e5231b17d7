// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SettingsWords.h"

#include "core/StrictJson.h"
#include "network/NetworkError.h"

using namespace Qt::StringLiterals;

namespace quorvane::SettingsWords {

namespace {

bool isUnusableAnswer(const std::error_code &error)
{
    return error == NetworkError::invalidResponse ||
           error.category() == make_error_code(JsonError::notJson).category();
}

QString serverSentence(const std::error_code &error)
{
    if (error == NetworkError::configuration)
        return u"Enter the server’s HTTPS address and an access token of at least 32 characters first."_s;
    if (error == NetworkError::rejected)
        return u"Your server refused the request. Check its address and access token."_s;
    if (isUnusableAnswer(error))
        return u"Your server’s answer cannot be used. Check its address."_s;
    return u"Your server could not be reached. Check its address and the connection."_s;
}

SettingsOutcome problem(const QString &text)
{
    return {NoticeKind::problem, text};
}

} // namespace

SettingsOutcome phoneTest(const std::error_code &error)
{
    if (!error)
        return {NoticeKind::success, u"Test sent. Check your iPhone."_s};
    if (error == NetworkError::configuration)
        return problem(
            u"Enter your Pushover user key and application token first. Each has exactly 30 characters."_s);
    if (error == NetworkError::rejected || isUnusableAnswer(error))
        return problem(u"Pushover refused the test. Check the user key and the application token."_s);
    return problem(u"Pushover could not be reached. Check the connection and try again."_s);
}

SettingsOutcome serverTest(const std::error_code &error)
{
    if (!error)
        return {NoticeKind::success, u"Test requested. Your server sends it to your iPhone."_s};
    return problem(serverSentence(error));
}

SettingsOutcome removal(const std::error_code &error)
{
    if (!error)
        return {NoticeKind::success, u"Schedule removed from your server. Sharing is off."_s};
    if (error == NetworkError::configuration)
        return problem(u"Sharing is off. No server is set up from which a schedule could be removed."_s);
    return problem(u"Sharing is off, but the schedule is still on your server. "_s + serverSentence(error));
}

} // namespace quorvane::SettingsWords

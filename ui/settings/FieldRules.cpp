// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/FieldRules.h"

#include "core/Characters.h"

#include <QCoreApplication>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace quorvane::FieldRules {

namespace {

constexpr qsizetype shortestServerToken = 32;

bool isPhoneCredential(const QString &text)
{
    static const QRegularExpression form(u"\\A[A-Za-z0-9]{30}\\z"_s);
    return form.match(text).hasMatch();
}

QString told(const char *sentence)
{
    return QCoreApplication::translate("FieldRules", sentence);
}

} // namespace

QString pushoverUser(const QString &text)
{
    return isPhoneCredential(text)
               ? QString()
               : told(QT_TRANSLATE_NOOP("FieldRules", "A user key has 30 letters and digits."));
}

QString pushoverToken(const QString &text)
{
    return isPhoneCredential(text)
               ? QString()
               : told(QT_TRANSLATE_NOOP("FieldRules", "An application token has 30 letters and digits."));
}

QString serverToken(const QString &text)
{
    return Characters::count(text) >= shortestServerToken
               ? QString()
               : told(QT_TRANSLATE_NOOP("FieldRules", "An access token has at least 32 characters."));
}

} // namespace quorvane::FieldRules

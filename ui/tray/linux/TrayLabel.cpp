// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/tray/linux/TrayLabel.h"

using namespace Qt::StringLiterals;

namespace quorvane::TrayLabel {

namespace {

// On the bus an underscore marks the letter that the keyboard chooses an entry by, and Qt 6.4 escapes
// nothing: it only turns the first ampersand into one. It gets an ampersand of its own for that, before a
// character that is not seen.
QString onTheBus(QString text)
{
    text.replace(u"_"_s, u"__"_s);
    if (text.contains(u'&'))
        text.prepend(u"&\u2060"_s);
    return text;
}

QString inAWindow(QString text)
{
    return text.replace(u"&"_s, u"&&"_s);
}

} // namespace

QString of(const QString &text, TrayKind kind)
{
    switch (kind) {
    case TrayKind::notifierItem:
        return onTheBus(text);
    case TrayKind::embedded:
        return inAWindow(text);
    }
    Q_UNREACHABLE();
}

} // namespace quorvane::TrayLabel

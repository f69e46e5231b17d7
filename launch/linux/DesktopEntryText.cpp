// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "launch/linux/DesktopEntryText.h"

namespace quorvane::DesktopEntryText {

namespace {

QByteArray escaped(char byte)
{
    switch (byte) {
    case '\\':
        return QByteArrayLiteral("\\\\");
    case '\n':
        return QByteArrayLiteral("\\n");
    case '\t':
        return QByteArrayLiteral("\\t");
    case '\r':
        return QByteArrayLiteral("\\r");
    default:
        return {1, byte};
    }
}

} // namespace

QByteArray string(const QByteArray &value)
{
    QByteArray text;
    for (const char byte : value)
        text += escaped(byte);
    if (text.startsWith(' '))
        text.replace(0, 1, "\\s"); // blanks after the equals sign are ignored
    return text;
}

QByteArray commandArgument(const QByteArray &argument)
{
    QByteArray text(1, '"');
    for (const char byte : argument) {
        if (QByteArrayView("\"`$\\").contains(byte))
            text += '\\';
        text += byte;
        if (byte == '%')
            text += byte;
    }
    return text + '"';
}

} // namespace quorvane::DesktopEntryText

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <algorithm>

#include <malloc.h>

/// What the running program has of the system's goods.
namespace quorvane::ProcessFigures {

/// Open descriptors.
[[nodiscard]] inline qsizetype descriptors()
{
    return QDir(QStringLiteral("/proc/self/fd")).entryList(QDir::AllEntries | QDir::System).size();
}

/// Bytes in use of all that malloc hands out.
[[nodiscard]] inline std::size_t memory()
{
    const auto used = mallinfo2();
    return used.uordblks + used.hblkhd;
}

/// HTTP requests under way: Qt has a thread of this name for each of our requests. One that has just begun
/// goes by the program's name still and is counted too, whatever becomes of it.
[[nodiscard]] inline qsizetype requests()
{
    const QString tasks = QStringLiteral("/proc/self/task/");
    const auto nameOf = [&](const QString &thread) {
        QFile name(tasks + thread + QStringLiteral("/comm"));
        return name.open(QIODevice::ReadOnly) ? name.readAll() : QByteArray();
    };
    const QString first = QString::number(QCoreApplication::applicationPid());
    const QByteArray program = nameOf(first);
    const QStringList threads = QDir(tasks).entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return std::ranges::count_if(threads, [&](const QString &thread) {
        const QByteArray name = nameOf(thread);
        return name.startsWith("QNetworkAccess") || (name == program && thread != first);
    });
}

} // namespace quorvane::ProcessFigures

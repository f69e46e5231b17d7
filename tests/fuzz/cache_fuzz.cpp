// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "calendar-reader/CacheFile.h"
#include "calendar-reader/CacheReader.h"

#include <QFile>
#include <QTemporaryDir>

using namespace std::chrono_literals;
using namespace quorvane;

/// Any bytes as a cache file: a snapshot that the application would take, or an error.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const QTemporaryDir folder(QStringLiteral("/dev/shm/quorvane-fuzz-XXXXXX"));
    static const QString path = folder.filePath(QStringLiteral("cache"));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size)) < 0)
        qFatal("cannot write %s", qPrintable(path));
    file.close();

    const Result<QByteArray> resolved = CacheFile::resolve(QFile::encodeName(path));
    if (!resolved)
        return 0;
    const CacheRequest request{
        .path = *resolved,
        .excluded = {QStringLiteral("excluded")},
        .now = 1'800'000'000,
        .zone = "Asia/Jerusalem",
        .deadline = std::chrono::steady_clock::now() + 2s,
    };
    const Result<FantasticalSnapshot> snapshot = CacheReader::read(request);
    if (!snapshot)
        return 0;
    const QByteArray json = snapshot->toJson();
    if (json.size() > FantasticalSnapshot::largest || !FantasticalSnapshot::fromJson(json))
        qFatal("a snapshot that the application refuses");
    return 0;
}

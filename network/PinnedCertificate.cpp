// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "network/PinnedCertificate.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane::PinnedCertificate {

namespace {

constexpr qint64 longestFile = 65'536;

} // namespace

QByteArray find(const QStringList &folders)
{
    for (const QString &folder : folders) {
        const QFileInfo found(folder + "/quorvane-server.cer"_L1);
        if (!found.exists())
            continue;
        QFile file(found.filePath());
        // A pipe in its place would never end.
        if (!found.isFile() || found.size() > longestFile || !file.open(QIODevice::ReadOnly))
            return {};
        return file.readAll();
    }
    return {};
}

} // namespace quorvane::PinnedCertificate

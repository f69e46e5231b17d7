// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "posix/WholeFile.h"

#include <QSaveFile>

namespace quorvane {

Result<void> writeWholeFile(const QString &path, const QByteArray &content)
{
    QSaveFile file(path);
    // Flushed here: committing alone does not notice that the last bytes found no place.
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size() || !file.flush() ||
        !file.commit())
        return Failure(std::make_error_code(std::errc::io_error));
    return {};
}

} // namespace quorvane

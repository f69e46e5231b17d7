// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QByteArray>
#include <QString>

namespace quorvane::StoreSeed {

/// Writes a file, making its folders.
void write(const QString &path, const QByteArray &content);

/// Puts a calendar into the folder `root` as a collection of its own; returns its identifier in a
/// `FolderStore`.
QString inFolder(const QString &root, const QString &name, const QByteArray &calendar);

/// Puts a calendar into the private Evolution Data Server of this session, which must not run yet; returns
/// its identifier in an `EvolutionStore`. The account is called "Work account".
QString inEvolution(const QString &name, const QByteArray &calendar, const QString &ownAddress);

} // namespace quorvane::StoreSeed

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/PreparedMark.h"

#include "updates/linux/DurableFolder.h"

namespace quorvane::PreparedMark {

namespace {

constexpr const char *file = ".prepared";

} // namespace

bool isOf(const QString &folder, const UpdateItem &item)
{
    const Result<QByteArray> content = DurableFolder(folder).read(file);
    return content && *content == item.signature.toHex();
}

bool isIn(const QString &folder)
{
    return DurableFolder(folder).has(file);
}

Result<void> write(const QString &folder, const UpdateItem &item)
{
    return DurableFolder(folder).write(file, item.signature.toHex());
}

} // namespace quorvane::PreparedMark

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Appcast.h"
#include "updates/ReleaseNotes.h"
#include "updates/VersionOrder.h"

using namespace quorvane;

namespace {

void checkNotes(const QString &text)
{
    for (const auto format : {ReleaseNotes::Format::html, ReleaseNotes::Format::plain}) {
        const QString notes = ReleaseNotes::plainText(text, format);
        if (notes.toUcs4().size() > ReleaseNotes::longest || notes != notes.trimmed())
            qFatal("notes that are too long");
    }
}

void checkItem(const UpdateItem &item)
{
    if (!VersionOrder::isVersion(item.version) || item.shortVersion.isEmpty() ||
        item.archive.scheme() != u"https" || item.length < 1 || item.length > 1'000'000'000 ||
        item.signature.size() != 64)
        qFatal("an item that cannot be installed");
    const auto order = VersionOrder::compare(item.version, item.shortVersion);
    const auto backward = VersionOrder::compare(item.shortVersion, item.version);
    if ((order < 0) != (backward > 0) || (order == 0) != (backward == 0))
        qFatal("two versions, each above the other");
}

} // namespace

/// Any bytes as a feed, and as what it says about a version.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<qsizetype>(size));
    checkNotes(QString::fromUtf8(bytes));
    const auto items = Appcast::read(bytes);
    if (!items)
        return 0;
    for (const UpdateItem &item : *items)
        checkItem(item);
    const auto newest = Appcast::newest(*items, QStringLiteral("1"));
    if (newest && VersionOrder::compare(newest->version, u"1") <= 0)
        qFatal("an update that is none");
    return 0;
}

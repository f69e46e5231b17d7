// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "update-unpacker/EntryRule.h"

#include <algorithm>

namespace quorvane {
namespace {

bool isName(const QByteArray &name)
{
    return !name.isEmpty() && name != "." && name != ".." && name.size() <= EntryRule::longestName &&
           std::ranges::all_of(name, [](char byte) { return byte >= ' ' && byte <= '~'; });
}

bool isPath(const QByteArray &path)
{
    if (path.size() > EntryRule::longestPath)
        return false;
    const QList<QByteArray> names = path.split('/');
    return names.first() == EntryRule::topFolder && std::ranges::all_of(names, isName);
}

/// Up as far as the top folder at most, then down. A step up behind a name could be one out of another link's
/// target.
bool leadsInside(const QByteArray &target, const QByteArray &path)
{
    if (target.isEmpty() || target.size() > EntryRule::longestPath)
        return false;
    const QList<QByteArray> steps = target.split('/');
    const auto down = std::ranges::find_if(steps, [](const QByteArray &step) { return step != ".."; });
    const auto foldersAboveTop = path.count('/') - 1;
    return down - steps.begin() <= foldersAboveTop && std::all_of(down, steps.end(), isName);
}

bool isKnown(ArchiveEntry::Kind kind)
{
    switch (kind) {
    case ArchiveEntry::Kind::file:
    case ArchiveEntry::Kind::program:
    case ArchiveEntry::Kind::folder:
    case ArchiveEntry::Kind::link:
        return true;
    case ArchiveEntry::Kind::other:
        break;
    }
    return false;
}

} // namespace

bool EntryRule::accepts(const ArchiveEntry &entry)
{
    if (!isKnown(entry.kind) || !isPath(entry.path))
        return false;
    if (entry.kind == ArchiveEntry::Kind::link && !leadsInside(entry.target, entry.path))
        return false;
    return takesBytes(entry) && takesFoldersOf(entry.path) && takesPlace(entry) &&
           m_places.size() <= mostEntries;
}

bool EntryRule::takesBytes(const ArchiveEntry &entry)
{
    if (entry.size < 0 || entry.size > mostBytes - m_bytes)
        return false;
    m_bytes += entry.size;
    return true;
}

bool EntryRule::takesFoldersOf(const QByteArray &path)
{
    for (qsizetype end = path.indexOf('/'); end >= 0; end = path.indexOf('/', end + 1)) {
        const QByteArray folder = path.left(end);
        const auto known = m_places.constFind(folder);
        if (known == m_places.cend())
            m_places.insert(folder, Place::impliedFolder);
        else if (*known == Place::leaf)
            return false;
    }
    return true;
}

bool EntryRule::takesPlace(const ArchiveEntry &entry)
{
    const bool isFolder = entry.kind == ArchiveEntry::Kind::folder;
    const auto known = m_places.constFind(entry.path);
    const bool isNew = known == m_places.cend();
    if (!isNew && !(isFolder && *known == Place::impliedFolder))
        return false;
    m_places.insert(entry.path, isFolder ? Place::folder : Place::leaf);
    // The top folder is one.
    return isFolder || entry.path.contains('/');
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/AppcastItem.h"

#include "core/Characters.h"
#include "updates/ReleaseNotes.h"
#include "updates/VersionOrder.h"

#include <QSysInfo>
#include <QXmlStreamReader>

#include <algorithm>
#include <vector>

namespace quorvane::AppcastItem {
namespace {

using namespace Qt::StringLiterals;

constexpr QLatin1StringView feedNamespace("http://www.andymatuschak.org/xml-namespaces/sparkle");

/// What an enclosure says.
struct Enclosure
{
    QString system;
    QString version;
    QString shortVersion;
    QUrl archive;
    qint64 length = 0;
    QByteArray signature;

    [[nodiscard]] bool isUsable() const
    {
        constexpr qsizetype signatureSize = 64;
        return archive.isValid() && archive.scheme() == u"https" && !archive.host().isEmpty() &&
               length >= 1 && length <= UpdateItem::longestArchive && signature.size() == signatureSize;
    }
};

/// What an item says, before anything of it is judged.
struct Draft
{
    QString version;
    QString shortVersion;
    QString notes;
    ReleaseNotes::Format notesFormat = ReleaseNotes::Format::html;
    std::vector<Enclosure> enclosures;
    bool isForEveryone = true;
};

/// 0 for anything but decimal digits.
qint64 strictNumber(const QString &text)
{
    const bool digits = std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
    return digits ? text.toLongLong() : 0;
}

/// Base64 (RFC 4648) in its one right spelling; empty for anything else.
QByteArray strictBase64(const QString &text)
{
    const QByteArray spelling = text.toLatin1();
    const QByteArray bytes = QByteArray::fromBase64(spelling);
    return bytes.toBase64() == spelling ? bytes : QByteArray();
}

Enclosure enclosure(const QXmlStreamAttributes &attributes)
{
    const auto own = [&](QLatin1StringView name) {
        return attributes.value(feedNamespace, name).trimmed().toString();
    };
    return {
        .system = own("os"_L1),
        .version = own("version"_L1),
        .shortVersion = own("shortVersionString"_L1),
        .archive = QUrl(attributes.value("url"_L1).trimmed().toString(), QUrl::StrictMode),
        .length = strictNumber(attributes.value("length"_L1).trimmed().toString()),
        .signature = strictBase64(own("edSignature"_L1)),
    };
}

/// Empty when there are elements in it.
QString textOf(QXmlStreamReader &xml)
{
    QString text;
    bool plain = true;
    while (!xml.atEnd() && xml.readNext() != QXmlStreamReader::EndElement) {
        if (xml.isStartElement()) {
            plain = false;
            xml.skipCurrentElement();
        } else if (xml.isCharacters()) {
            text += xml.text();
        }
    }
    return plain ? text : QString();
}

void readNotes(QXmlStreamReader &xml, Draft &draft)
{
    const bool plain = xml.attributes().value(feedNamespace, "format"_L1) == "plain-text"_L1;
    const QString notes = xml.readElementText(QXmlStreamReader::IncludeChildElements);
    if (!draft.notes.isEmpty())
        return;
    draft.notes = notes;
    draft.notesFormat = plain ? ReleaseNotes::Format::plain : ReleaseNotes::Format::html;
}

void readOwnElement(QXmlStreamReader &xml, Draft &draft)
{
    const QString name = xml.name().toString();
    if (name == "version"_L1) {
        draft.version = textOf(xml).trimmed();
    } else if (name == "shortVersionString"_L1) {
        draft.shortVersion = textOf(xml);
    } else if (name == "enclosure"_L1) {
        draft.enclosures.push_back(enclosure(xml.attributes()));
        xml.skipCurrentElement();
    } else {
        // Both may be empty, or have elements, and say what they say by being there.
        if (name == "channel"_L1 || name == "informationalUpdate"_L1)
            draft.isForEveryone = false;
        xml.skipCurrentElement();
    }
}

Draft readDraft(QXmlStreamReader &xml)
{
    Draft draft;
    while (xml.readNextStartElement()) {
        if (xml.namespaceUri() == feedNamespace) {
            readOwnElement(xml, draft);
        } else if (xml.namespaceUri().isEmpty() && xml.name() == "description"_L1) {
            readNotes(xml, draft);
        } else {
            if (xml.namespaceUri().isEmpty() && xml.name() == "enclosure"_L1)
                draft.enclosures.push_back(enclosure(xml.attributes()));
            xml.skipCurrentElement();
        }
    }
    return draft;
}

/// The first usable enclosure for this very machine, or else for any of its system, or else for nobody in
/// particular.
const Enclosure *chosen(const std::vector<Enclosure> &enclosures)
{
    const auto forSystem = [&](const QString &system) -> const Enclosure * {
        const auto found =
            std::find_if(enclosures.begin(), enclosures.end(), [&](const Enclosure &candidate) {
                return candidate.system == system && candidate.isUsable();
            });
        return found == enclosures.end() ? nullptr : &*found;
    };
    const bool namesLinux = std::any_of(enclosures.begin(), enclosures.end(), [](const Enclosure &candidate) {
        return candidate.system == u"linux" || candidate.system.startsWith(u"linux-");
    });
    if (!namesLinux)
        return forSystem(QString());
    const Enclosure *own = forSystem(u"linux-"_s + QSysInfo::buildCpuArchitecture());
    return own ? own : forSystem(u"linux"_s);
}

QString firstOf(const QString &element, const QString &attribute)
{
    return element.isEmpty() ? attribute : element;
}

} // namespace

std::optional<UpdateItem> read(QXmlStreamReader &xml)
{
    const Draft draft = readDraft(xml);
    const Enclosure *enclosure = chosen(draft.enclosures);
    if (!draft.isForEveryone || !enclosure)
        return std::nullopt;
    const QString version = firstOf(draft.version, enclosure->version);
    if (!VersionOrder::isVersion(version))
        return std::nullopt;

    constexpr qsizetype longestShortVersion = 60;
    const QString shortVersion = ReleaseNotes::plainText(firstOf(draft.shortVersion, enclosure->shortVersion),
                                                         ReleaseNotes::Format::plain);
    return UpdateItem{
        .version = version,
        .shortVersion = firstOf(Characters::fitting(shortVersion.simplified(), longestShortVersion), version),
        .notes = ReleaseNotes::plainText(draft.notes, draft.notesFormat),
        .archive = enclosure->archive,
        .length = enclosure->length,
        .signature = enclosure->signature,
    };
}

} // namespace quorvane::AppcastItem

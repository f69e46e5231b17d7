// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Appcast.h"

#include "updates/AppcastItem.h"
#include "updates/FeedMarkup.h"
#include "updates/UpdateError.h"
#include "updates/VersionOrder.h"

#include <QStringDecoder>
#include <QXmlStreamReader>

namespace quorvane::Appcast {
namespace {

/// Nothing when the bytes are no UTF-8.
std::optional<QString> decoded(const QByteArray &feed)
{
    QStringDecoder decoder(QStringDecoder::Utf8);
    QString text = decoder(feed);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

bool isPlain(const QXmlStreamReader &xml, QLatin1StringView name)
{
    return xml.name() == name && xml.namespaceUri().isEmpty();
}

/// Reads the elements of the channel that the reader stands in. What is wrong is raised at the reader.
void readChannel(QXmlStreamReader &xml, std::vector<UpdateItem> &items)
{
    int count = 0;
    while (xml.readNextStartElement()) {
        if (!isPlain(xml, QLatin1StringView("item"))) {
            xml.skipCurrentElement();
            continue;
        }
        if (++count > mostItems) {
            xml.raiseError(QString());
            return;
        }
        if (std::optional<UpdateItem> item = AppcastItem::read(xml))
            items.push_back(*std::move(item));
    }
}

} // namespace

Result<std::vector<UpdateItem>> read(const QByteArray &feed)
{
    const Failure invalid(UpdateError::feedInvalid);
    if (feed.size() > largest)
        return invalid;
    const std::optional<QString> text = decoded(feed);
    if (!text || !FeedMarkup::isHarmless(*text))
        return invalid;

    std::vector<UpdateItem> items;
    QXmlStreamReader xml(*text);
    if (!xml.readNextStartElement() || !isPlain(xml, QLatin1StringView("rss")))
        return invalid;
    bool hasChannel = false;
    while (xml.readNextStartElement()) {
        if (isPlain(xml, QLatin1StringView("channel")) && !hasChannel) {
            hasChannel = true;
            readChannel(xml, items);
        } else {
            xml.skipCurrentElement();
        }
    }
    while (!xml.atEnd())
        xml.readNext();
    if (xml.hasError() || !hasChannel)
        return invalid;
    return items;
}

std::optional<UpdateItem> newest(const std::vector<UpdateItem> &items, const QString &installedVersion)
{
    std::optional<UpdateItem> best;
    for (const UpdateItem &item : items) {
        if (VersionOrder::compare(item.version, best ? best->version : installedVersion) > 0)
            best = item;
    }
    return best;
}

} // namespace quorvane::Appcast

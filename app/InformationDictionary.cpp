// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/InformationDictionary.h"

#include "core/StrictJson.h"

#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr qint64 longestFile = 65'536;

std::optional<QString> text(const QJsonObject &object, QLatin1StringView key)
{
    const QJsonValue value = object.value(key);
    return value.isString() ? std::optional(value.toString()) : std::nullopt;
}

} // namespace

InformationDictionary InformationDictionary::read(const QString &path)
{
    QFile file(path);
    const QFileInfo found(path);
    if (!found.isFile() || found.size() > longestFile || !file.open(QIODevice::ReadOnly))
        return {};
    const Result<QJsonObject> object = jsonObject(file.readAll());
    if (!object)
        return {};
    return {
        .shortVersion = text(*object, "CFBundleShortVersionString"_L1),
        .buildNumber = text(*object, "CFBundleVersion"_L1),
        .feedAddress = text(*object, "SUFeedURL"_L1),
        .feedKey = text(*object, "SUPublicEDKey"_L1),
    };
}

} // namespace quorvane

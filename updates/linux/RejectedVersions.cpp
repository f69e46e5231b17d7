// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/RejectedVersions.h"

#include "core/StrictJson.h"
#include "updates/linux/DurableFolder.h"
#include "updates/linux/TrialRecord.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr const char *file = "rejected.json";
constexpr qsizetype mostVersions = 20;

} // namespace

RejectedVersions RejectedVersions::read(const DurableFolder &root)
{
    const Result<QByteArray> bytes = root.read(file);
    const Result<QJsonObject> object = jsonObject(bytes.value_or(QByteArray()));
    if (!object)
        return {};
    StrictJson json(*object);
    RejectedVersions rejected{json.strings("versions"_L1), json.optionalString("untold"_L1), std::nullopt};
    if (json.failure())
        return {};
    if (const Result<Handover> handover = handoverFromJson(object->value("handover"_L1).toObject()))
        rejected.handover = *handover;
    return rejected;
}

Result<void> RejectedVersions::write(const DurableFolder &root) const
{
    QJsonObject object{{u"versions"_s, QJsonArray::fromStringList(versions)}};
    if (untold)
        object.insert(u"untold"_s, *untold);
    if (handover)
        object.insert(u"handover"_s, handoverToJson(*handover));
    return root.write(file, QJsonDocument(object).toJson(QJsonDocument::Compact));
}

void RejectedVersions::add(const QString &version, const Handover &wishes)
{
    versions.removeAll(version);
    versions.append(version);
    versions = versions.last(qMin(versions.size(), mostVersions));
    untold = version;
    handover = wishes;
}

} // namespace quorvane

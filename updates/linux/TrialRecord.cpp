// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/TrialRecord.h"

#include "core/StrictJson.h"
#include "updates/VersionOrder.h"

#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quorvane {

QJsonObject handoverToJson(const Handover &handover)
{
    QJsonObject object{{u"window"_s, handover.window == Handover::Window::open}};
    if (handover.pausedUntil)
        object.insert(u"pausedUntil"_s, *handover.pausedUntil);
    return object;
}

Result<Handover> handoverFromJson(const QJsonObject &object)
{
    StrictJson json(object);
    const bool isOpen = json.boolean("window"_L1);
    const std::optional<double> pausedUntil = json.optionalNumber("pausedUntil"_L1);
    if (json.failure())
        return Failure(json.failure());
    return Handover{pausedUntil, isOpen ? Handover::Window::open : Handover::Window::closed};
}

QByteArray TrialRecord::toJson() const
{
    const QJsonObject object{
        {u"version"_s, version}, {u"previous"_s, previous}, {u"handover"_s, handoverToJson(handover)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact);
}

Result<TrialRecord> TrialRecord::fromJson(const QByteArray &bytes)
{
    const Result<QJsonObject> object = jsonObject(bytes);
    if (!object)
        return Failure(object.error());
    StrictJson json(*object);
    const QString version = json.string("version"_L1);
    const QString previous = json.string("previous"_L1);
    const Result<Handover> handover = handoverFromJson(json.object("handover"_L1));
    if (json.failure())
        return Failure(json.failure());
    if (!handover)
        return Failure(handover.error());
    // They become names of folders.
    if (!VersionOrder::isVersion(version) || !VersionOrder::isVersion(previous))
        return Failure(JsonError::wrongType);
    return TrialRecord{version, previous, *handover};
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/StrictJson.h"

#include <QJsonDocument>
#include <QJsonParseError>

namespace quorvane {

std::string errorText(JsonError error)
{
    switch (error) {
    case JsonError::notJson:
        return "not the expected JSON";
    case JsonError::missingKey:
        return "a required key is missing";
    case JsonError::wrongType:
        return "a value has the wrong type";
    }
    return "unknown";
}

const char *errorDomain(JsonError)
{
    return "Quorvane.Json";
}

Result<QJsonObject> jsonObject(const QByteArray &bytes)
{
    QJsonParseError parseError;
    const QJsonDocument document = QJsonDocument::fromJson(bytes, &parseError);
    if (parseError.error != QJsonParseError::NoError || !document.isObject())
        return Failure(JsonError::notJson);
    return document.object();
}

StrictJson::StrictJson(QJsonObject object)
    : m_object(std::move(object))
{
}

QJsonValue StrictJson::required(QLatin1StringView key, QJsonValue::Type type)
{
    QJsonValue value = m_object.value(key);
    if (value.type() == type)
        return value;
    if (!m_failure)
        m_failure = value.isUndefined() ? JsonError::missingKey : JsonError::wrongType;
    return {};
}

QString StrictJson::string(QLatin1StringView key)
{
    return required(key, QJsonValue::String).toString();
}

double StrictJson::number(QLatin1StringView key)
{
    return required(key, QJsonValue::Double).toDouble();
}

qint64 StrictJson::integer(QLatin1StringView key)
{
    // Two different defaults come back from a number that is not a whole one.
    const QJsonValue value = required(key, QJsonValue::Double);
    const qint64 whole = value.toInteger(0);
    if (whole != value.toInteger(1) && !m_failure)
        m_failure = JsonError::wrongType;
    return whole;
}

QJsonArray StrictJson::array(QLatin1StringView key)
{
    return required(key, QJsonValue::Array).toArray();
}

bool StrictJson::boolean(QLatin1StringView key)
{
    return required(key, QJsonValue::Bool).toBool();
}

std::optional<QString> StrictJson::optionalString(QLatin1StringView key)
{
    const QJsonValue value = m_object.value(key);
    if (value.isUndefined() || value.isNull())
        return std::nullopt;
    return required(key, QJsonValue::String).toString();
}

} // namespace quorvane

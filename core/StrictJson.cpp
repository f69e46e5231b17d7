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
    fail(value.isUndefined() ? JsonError::missingKey : JsonError::wrongType);
    return {};
}

bool StrictJson::isAbsent(QLatin1StringView key) const
{
    const QJsonValue value = m_object.value(key);
    return value.isUndefined() || value.isNull();
}

QString StrictJson::text(const QJsonValue &value)
{
    if (!value.isString())
        fail(JsonError::wrongType);
    return value.toString();
}

void StrictJson::fail(std::error_code reason)
{
    if (!m_failure)
        m_failure = reason;
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
    if (whole != value.toInteger(1))
        fail(JsonError::wrongType);
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

QStringList StrictJson::strings(QLatin1StringView key)
{
    QStringList texts;
    const QJsonArray values = array(key);
    for (const QJsonValue value : values)
        texts.append(text(value));
    return texts;
}

QMap<QString, QString> StrictJson::textsByName(QLatin1StringView key)
{
    QMap<QString, QString> texts;
    const QJsonObject values = object(key);
    for (auto value = values.begin(); value != values.end(); ++value)
        texts.insert(value.key(), text(value.value()));
    return texts;
}

QJsonObject StrictJson::object(QLatin1StringView key)
{
    return required(key, QJsonValue::Object).toObject();
}

std::optional<QString> StrictJson::optionalString(QLatin1StringView key)
{
    if (isAbsent(key))
        return std::nullopt;
    return string(key);
}

std::optional<double> StrictJson::optionalNumber(QLatin1StringView key)
{
    if (isAbsent(key))
        return std::nullopt;
    return number(key);
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/ErrorEnum.h"
#include "core/Result.h"

#include <QByteArray>
#include <QJsonArray>
#include <QJsonObject>
#include <QMap>
#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace quorvane {

enum class JsonError {
    /// The bytes are not one JSON value of the wanted kind.
    notJson = 1,
    missingKey,
    wrongType,
};

[[nodiscard]] std::string errorText(JsonError error);
[[nodiscard]] const char *errorDomain(JsonError error);

/// Decodes one JSON object (RFC 8259), or fails with `JsonError::notJson`.
[[nodiscard]] Result<QJsonObject> jsonObject(const QByteArray &bytes);

/// Reads the fields of an object without defaults: the first key that is missing or holds another type makes
/// the whole reading fail. Ask for every field, then look at `failure`.
class StrictJson
{
public:
    explicit StrictJson(QJsonObject object);

    [[nodiscard]] QString string(QLatin1StringView key);
    [[nodiscard]] double number(QLatin1StringView key);
    /// A number without a fraction that 64 bits can hold.
    [[nodiscard]] qint64 integer(QLatin1StringView key);
    [[nodiscard]] QJsonArray array(QLatin1StringView key);
    [[nodiscard]] bool boolean(QLatin1StringView key);
    /// An array of nothing but texts.
    [[nodiscard]] QStringList strings(QLatin1StringView key);
    /// An object of nothing but texts.
    [[nodiscard]] QMap<QString, QString> textsByName(QLatin1StringView key);
    [[nodiscard]] QJsonObject object(QLatin1StringView key);
    /// Absent when the key is missing or null, as is the one below.
    [[nodiscard]] std::optional<QString> optionalString(QLatin1StringView key);
    [[nodiscard]] std::optional<double> optionalNumber(QLatin1StringView key);

    /// An array of objects, each read by `Record::fromJson`.
    template<class Record>
    [[nodiscard]] std::vector<Record> records(QLatin1StringView key);

    /// Why the reading failed; an empty code when it did not.
    [[nodiscard]] std::error_code failure() const { return m_failure; }

private:
    [[nodiscard]] QJsonValue required(QLatin1StringView key, QJsonValue::Type type);
    [[nodiscard]] bool isAbsent(QLatin1StringView key) const;
    [[nodiscard]] QString text(const QJsonValue &value);
    void fail(std::error_code reason);

    QJsonObject m_object;
    std::error_code m_failure;
};

} // namespace quorvane

QUORVANE_ERROR_ENUM(JsonError)

namespace quorvane {

template<class Record>
std::vector<Record> StrictJson::records(QLatin1StringView key)
{
    const QJsonArray values = array(key);
    std::vector<Record> found;
    found.reserve(static_cast<std::size_t>(values.size()));
    for (const QJsonValue value : values) {
        if (!value.isObject())
            fail(JsonError::wrongType);
        Result<Record> record = Record::fromJson(value.toObject());
        if (!record)
            fail(record.error());
        if (m_failure)
            return {};
        found.push_back(*std::move(record));
    }
    return found;
}

} // namespace quorvane

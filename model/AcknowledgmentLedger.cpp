// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/AcknowledgmentLedger.h"

#include "core/StrictJson.h"
#include "model/AtomicFile.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>

using namespace Qt::StringLiterals;

namespace quorvane {

AcknowledgmentLedger::AcknowledgmentLedger(QString file)
    : m_file(std::move(file))
{
}

Result<AlertRecords> AcknowledgmentLedger::load()
{
    QDir().mkpath(QFileInfo(m_file).path());
    QFile file(m_file);
    if (!file.exists())
        return AlertRecords();
    Result<AlertRecords> records = Failure(std::make_error_code(std::errc::permission_denied));
    if (file.open(QIODevice::ReadOnly))
        records = decoded(file.readAll());
    if (!records)
        setAside();
    return records;
}

Result<AlertRecords> AcknowledgmentLedger::decoded(const QByteArray &bytes) const
{
    const auto object = jsonObject(bytes);
    if (!object)
        return Failure(object.error());
    AlertRecords records;
    for (auto entry = object->begin(); entry != object->end(); ++entry) {
        if (!entry->isObject())
            return Failure(JsonError::wrongType);
        const auto record = AlertRecord::fromJson(entry->toObject());
        if (!record)
            return Failure(record.error());
        records.insert(entry.key(), *record);
    }
    return records;
}

void AcknowledgmentLedger::setAside()
{
    const QString stamp = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    m_writable = QFile::rename(m_file, m_file + u".unreadable-"_s + stamp);
}

std::error_code AcknowledgmentLedger::save(const AlertRecords &records)
{
    if (!m_writable)
        return std::make_error_code(std::errc::permission_denied);
    QJsonObject object;
    for (auto entry = records.begin(); entry != records.end(); ++entry)
        object.insert(entry.key(), entry->toJson());
    const QByteArray bytes = QJsonDocument(object).toJson(QJsonDocument::Compact);
    const std::error_code error = AtomicFile::write(m_file, bytes);
    if (error != std::errc::no_such_file_or_directory)
        return error;
    QDir().mkpath(QFileInfo(m_file).path()); // somebody cleaned up
    return AtomicFile::write(m_file, bytes);
}

AlertRecords AcknowledgmentLedger::pruned(AlertRecords records, double now)
{
    if (records.size() <= pruneAbove)
        return records;
    records.removeIf(
        [now](const auto &entry) { return entry->shownAt != 0 && entry->shownAt <= now - keepShownFor; });
    return records;
}

} // namespace quorvane

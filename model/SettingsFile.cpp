// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/SettingsFile.h"

#include "model/FolderLock.h"
#include "model/MeetingChoicesText.h"

#include <QDateTime>
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStringDecoder>
#include <QStringTokenizer>

#include <algorithm>
#include <optional>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

const Failure notWritten(std::make_error_code(std::errc::io_error));

/// The file's text; absent when the bytes are none.
std::optional<QString> textOf(const QByteArray &bytes)
{
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString text = decoder(bytes);
    if (decoder.hasError() || text.contains(QChar(u'\0')))
        return std::nullopt;
    return text;
}

/// Whether every line is a comment, a section or a value. (QSettings tells so of a file once, and then
/// remembers what it could read.) Quoted values may run over several lines.
bool isIni(const QString &text)
{
    bool isQuoted = false;
    bool isContinued = false;
    for (const QStringView line : QStringTokenizer(text, u'\n')) {
        const QStringView trimmed = line.trimmed();
        const bool isComment = trimmed.startsWith(u';') || trimmed.startsWith(u'#');
        const bool isSection = trimmed.startsWith(u'[') && trimmed.endsWith(u']');
        const bool isNew = !isQuoted && !isContinued;
        if (isNew && !trimmed.isEmpty() && !isComment && !isSection && !trimmed.contains(u'='))
            return false;
        isContinued = false;
        for (qsizetype i = 0; i < line.size() && !(isNew && isComment); ++i) {
            if (line[i] == u'\\')
                isContinued = ++i >= line.size();
            else if (line[i] == u'"')
                isQuoted = !isQuoted;
        }
    }
    return !isQuoted;
}

/// The values that are texts with a form of their own.
bool isUnderstood(const QString &key, const QVariant &value)
{
    return key != "meetingChoices"_L1 ||
           (value.typeId() == QMetaType::QString && MeetingChoicesText::choices(value.toString()));
}

} // namespace

SettingsFile::SettingsFile(QString path)
    : m_path(std::move(path))
{
}

QVariant SettingsFile::value(const QString &key) const
{
    const QSettings settings(m_path, QSettings::IniFormat);
    return settings.value(key);
}

SettingsFile::Condition SettingsFile::condition() const
{
    const QFileInfo info(m_path);
    if (!info.exists())
        return m_isAway ? Condition::unusable : Condition::sound;
    QFile file(m_path);
    if (!info.isFile() || info.size() > largest || !file.open(QIODevice::ReadOnly))
        return Condition::unusable;
    const std::optional<QString> text = textOf(file.read(largest));
    if (!text)
        return Condition::unusable;
    const QSettings settings(m_path, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    const bool isWhole = isIni(*text) && std::ranges::all_of(keys, [&settings](const QString &key) {
                             return isUnderstood(key, settings.value(key));
                         });
    return isWhole ? Condition::sound : Condition::partly;
}

SettingsFile::Changes SettingsFile::understood() const
{
    Changes values;
    const QSettings settings(m_path, QSettings::IniFormat);
    const QStringList keys = settings.allKeys();
    for (const QString &key : keys) {
        if (isUnderstood(key, settings.value(key)))
            values.insert(key, settings.value(key));
    }
    return values;
}

bool SettingsFile::remember()
{
    if (condition() == Condition::unusable)
        return false;
    m_known = understood();
    return true;
}

// The new file is complete before the old one goes: a full disk must not leave none.
Result<void> SettingsFile::setAside()
{
    const Changes values = condition() == Condition::unusable ? m_known : understood();
    const QString stamp = QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s);
    const QString damaged = m_path + u".damaged-"_s + stamp;
    const QString fresh = m_path + u".new-"_s + stamp;
    const bool isWritten = values.isEmpty() || SettingsFile(fresh).write(values).has_value();
    if (!isWritten || (!m_isAway && !QDir().rename(m_path, damaged))) {
        QFile::remove(fresh);
        return notWritten;
    }
    if (!values.isEmpty() && !QDir().rename(fresh, m_path)) {
        QFile::remove(fresh);
        m_isAway = m_isAway || !QDir().rename(damaged, m_path);
        m_isUntold = m_isAway;
        return notWritten;
    }
    m_isAway = false;
    m_isUntold = true;
    return {};
}

Result<void> SettingsFile::edit(const std::function<Changes()> &change)
{
    const Result<void> written = editLocked(change);
    if (written)
        remember();
    if (std::exchange(m_isUntold, false) && m_told)
        m_told();
    return written;
}

Result<void> SettingsFile::editLocked(const std::function<Changes()> &change)
{
    const QString folder = QFileInfo(m_path).path();
    QDir().mkpath(folder);
    const FolderLock lock(folder);
    if (condition() != Condition::sound) {
        if (const Result<void> saved = setAside(); !saved)
            return saved;
    }
    return write(change());
}

Result<void> SettingsFile::write(const Changes &changes)
{
    QSettings settings(m_path, QSettings::IniFormat);
    const auto apply = [&settings](const QString &key, const QVariant &value) {
        if (value.isValid())
            settings.setValue(key, value);
        else
            settings.remove(key);
    };
    Changes before;
    for (auto change = changes.begin(); change != changes.end(); ++change) {
        const QVariant old = settings.value(change.key());
        if (old == change.value())
            continue;
        before.insert(change.key(), old);
        apply(change.key(), change.value());
    }
    settings.sync();
    if (settings.status() == QSettings::NoError)
        return {};
    // What could not be written would be remembered, and written at another time.
    for (auto old = before.begin(); old != before.end(); ++old)
        apply(old.key(), old.value());
    return notWritten;
}

} // namespace quorvane

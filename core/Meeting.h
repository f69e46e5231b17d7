// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QDateTime>
#include <QJsonObject>
#include <QString>
#include <QUrl>

#include <optional>

namespace quorvane {

/// The one meeting record that every room passes around. Times are Unix time in seconds (fractions allowed).
struct Meeting
{
    /// Stable key of alert records, choices and the ledger.
    QString id;
    QString title;
    double start = 0;
    double end = 0;
    /// Display name of the calendar it came from.
    QString calendar;
    /// The join link, or a text in which one may be found.
    std::optional<QString> joinURL;
    /// Where the record came from: `systemSource`, `manualSource`, or a foreign value carried unchanged.
    QString source;
    bool cancelled = false;
    bool allDay = false;

    bool operator==(const Meeting &) const = default;

    /// How long after its start a meeting may still alert, in seconds.
    static constexpr double graceAfterStart = 120;
    /// Source of meetings read on this machine from the system's calendar store.
    static const QString systemSource;
    /// Source of meetings added by hand.
    static const QString manualSource;

    /// The start as a date in the user's time zone.
    [[nodiscard]] QDateTime startDate() const;

    /// Whether the meeting can still alert at Unix time `now`: neither cancelled nor all-day, its end after
    /// its start, and begun at most `graceAfterStart` seconds ago.
    [[nodiscard]] bool eligible(double now) const;

    /// Stable identifier of one occurrence: 64 lower-case hexadecimal digits, the SHA-256 of "uid|start" with
    /// the start truncated toward zero. `start` must be finite and within 64 bits; anything else ends the
    /// process.
    [[nodiscard]] static QString identity(const QString &uid, double start);

    /// The parsed link when `text` may be opened or sent to the phone: an absolute URL (RFC 3986) with the
    /// scheme https, zoommtg or msteams, a host, and neither user name nor password. The text is not trimmed.
    [[nodiscard]] static std::optional<QUrl> safeJoinURL(const std::optional<QString> &text);

    /// The first link in free text that is safe and names a video service (or a subdomain of one), as it
    /// stands.
    [[nodiscard]] static std::optional<QString> findJoinURL(const QString &text);

    /// Whether `joinURL` holds a link to a video service.
    [[nodiscard]] bool isVideoMeeting() const;

    [[nodiscard]] QJsonObject toJson() const;
    /// Fails with `JsonError` when a key other than "joinURL" is missing or any value has the wrong type.
    [[nodiscard]] static Result<Meeting> fromJson(const QJsonObject &object);
};

} // namespace quorvane

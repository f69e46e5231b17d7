// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/Result.h"

#include <QMap>
#include <QString>
#include <QVariant>

#include <functional>

namespace quorvane {

/// The ini file behind the user's settings, which other programs and a second copy of this one may change at
/// any time: every question reads it anew when it changed, and whoever writes changes only what it means to.
/// Main thread only.
class SettingsFile final
{
public:
    /// A larger file, in bytes, is none of ours.
    static constexpr qint64 largest = 8'000'000;

    enum class Condition {
        /// It can be read, or is not there yet.
        sound,
        /// Parts of the text cannot be understood.
        partly,
        /// It is no text, too large, no file, or cannot be opened; or it was set aside and has no successor.
        unusable,
    };

    /// New values by key; an invalid one removes the key.
    using Changes = QMap<QString, QVariant>;

    /// `path` need not exist.
    explicit SettingsFile(QString path);

    [[nodiscard]] const QString &path() const { return m_path; }
    [[nodiscard]] QVariant value(const QString &key) const;
    [[nodiscard]] Condition condition() const;

    /// Asks `change` what is to be changed while no other copy of this program writes, and writes it: when it
    /// returns, or when somebody kills it, there is the old or the new file. All else stays as it is,
    /// comments do not. Fails with `std::errc::io_error`, and no value has changed.
    ///
    /// A file that is not sound is first renamed to "<name>.damaged-<time>", so that it is neither obeyed nor
    /// overwritten, and a new one holds what could be understood of it; if it was unusable, what it was last
    /// known to hold.
    [[nodiscard]] Result<void> edit(const std::function<Changes()> &change);

    /// Takes what the file holds now for what it is known to hold, as each edit does. False, with nothing
    /// changed, when it is unusable.
    bool remember();

    /// `told` is called after every edit that renamed a damaged file, also if it failed then.
    void whenSetAside(std::function<void()> told) { m_told = std::move(told); }

private:
    [[nodiscard]] Result<void> editLocked(const std::function<Changes()> &change);
    [[nodiscard]] Result<void> setAside();
    [[nodiscard]] Result<void> write(const Changes &changes);
    [[nodiscard]] Changes understood() const;

    QString m_path;
    Changes m_known;
    std::function<void()> m_told;
    bool m_isUntold = false;
    /// Renamed, and nothing could be put in its place: that it is missing says nothing.
    bool m_isAway = false;
};

} // namespace quorvane

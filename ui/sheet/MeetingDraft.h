// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane {

/// What a person has typed of a meeting, as it stands.
struct MeetingDraft
{
    QString title;
    /// Unix time in seconds.
    double start = 0;
    /// In minutes.
    int duration = 30;
    QString link;

    /// What keeps one field from being added.
    enum class Problem { none, missing, tooLong, past, unsafe };

    /// The longest texts, in characters as a reader counts them, blanks included.
    static constexpr qsizetype longestTitle = 1000;
    static constexpr qsizetype longestLink = 2000;

    [[nodiscard]] Problem titleProblem() const;
    /// At Unix time `now` in seconds: a meeting starts later than that.
    [[nodiscard]] Problem startProblem(double now) const;
    /// A link may be left out; otherwise it must be one that may be opened. Blanks are not nothing.
    [[nodiscard]] Problem linkProblem() const;
    [[nodiscard]] bool valid(double now) const;
};

} // namespace quorvane

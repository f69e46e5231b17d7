// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/MeetingSelection.h"

#include <QString>

#include <optional>

/// The user's choices as one text: a JSON object (RFC 8259), meeting id to boolean.
namespace quorvane::MeetingChoicesText {

[[nodiscard]] QString text(const MeetingChoices &choices);

/// Absent when the text is no such object; an empty one holds no choices.
[[nodiscard]] std::optional<MeetingChoices> choices(const QString &text);

} // namespace quorvane::MeetingChoicesText

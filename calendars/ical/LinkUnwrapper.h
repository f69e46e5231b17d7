// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane::LinkUnwrapper {

/// `text` with every link that only leads on to another one replaced by that other one: Outlook's SafeLinks,
/// Google's and Teams' redirects. Wrappers inside wrappers are opened too. A wrapper without a usable target
/// stays as it is, and so does all other text. Takes time in proportion to the length of the text.
[[nodiscard]] QString unwrapped(const QString &text);

} // namespace quorvane::LinkUnwrapper

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace quorvane {

/// Plain order by Unicode code points. (QString's own `<` goes by UTF-16 units, which puts U+E000 to U+FFFF
/// after the characters beyond them.)
[[nodiscard]] bool codePointLess(const QString &a, const QString &b);

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Bounds what this process may use up, whatever it reads. A bound that the system refuses to set is left
/// out.
void limitResources();

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Lets everybody else on the machine go first, to the processor as to the disk. There is no way back.
void takeLowestPriority();

} // namespace quorvane

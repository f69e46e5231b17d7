// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace quorvane {

/// Gives the system what this process holds and may never need again: free heap, and the code of its
/// libraries, which comes back from their files page by page as it is run. Takes some milliseconds, and as
/// many again later on, so it is for the end of something rare and large.
void returnUnusedMemory();

} // namespace quorvane

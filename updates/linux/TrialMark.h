// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"

namespace quorvane {

class DurableFolder;

/// What a version on trial leaves beside ROOT/trial.json, so that others see how it fares. ROOT/trial.running
/// is there from its first start on, and locked by the process that is on trial; it names the boot of the
/// machine, because what a power cut ends has not failed. ROOT/trial.seen says that the version came to the
/// beginning of its trial at all, and stays as long as the trial does.
struct TrialMark
{
    enum class Finding {
        /// This process is the first: it is on trial as long as it holds `file`.
        first,
        /// Another process is on trial.
        inUse,
        /// The version was tried and did not survive, or nobody could tell later if it did.
        left,
    };

    Finding finding;
    FileDescriptor file;

    /// For a start of the version on trial.
    [[nodiscard]] static TrialMark take(const DurableFolder &root);
    static void noteSeen(const DurableFolder &root);
    [[nodiscard]] static bool isSeen(const DurableFolder &root);

    /// Whether the version was tried and did not survive.
    [[nodiscard]] static bool isLeft(const DurableFolder &root);
    /// The same, without ever having begun.
    [[nodiscard]] static bool isLeftUnseen(const DurableFolder &root);
    /// Says that it did not survive, whether or not it began.
    static void leave(const DurableFolder &root);

    /// The next start is the first.
    static void remove(const DurableFolder &root);
    /// The same, unless somebody is on trial.
    static void removeUnused(const DurableFolder &root);
    /// Nothing is left of the trial.
    static void removeAll(const DurableFolder &root);
};

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "posix/FileDescriptor.h"
#include "updates/Handover.h"
#include "updates/linux/InstalledVersions.h"

#include <QString>

#include <chrono>
#include <functional>
#include <optional>

namespace quorvane {

class DurableFolder;
struct TrialRecord;

/// A new version is on trial from its first start until it is confirmed; one that ended before that gives way
/// to the version before it. Also keeps the files of the running version from being cleaned up, so it has to
/// live as long as the process. Belongs to one thread, needs no application object, and waits for nothing but
/// another process that is deciding the same, at most two seconds.
///
/// On the disk: ROOT/trial.json says what is on trial, and `TrialMark` how it fares.
class VersionTrial final
{
public:
    enum class Outcome {
        /// Nothing special: go on.
        none,
        /// This is the first start of a new version: go on, `watch`, and `confirm` when it has proved itself.
        onTrial,
        /// Another process of this new version is on trial, or decides: go on, and `retry`.
        inProgress,
        /// This version did not survive its trial and is not the current one any more: start `successor`.
        rolledBack,
    };

    struct WatchTimes
    {
        /// After which a process on trial that was not confirmed is killed.
        std::chrono::milliseconds patience{120'000};
        /// After which nobody watches any more, whatever happened.
        std::chrono::milliseconds end{180'000};
    };

    /// Becomes another program; returns only if that fails.
    using Start = std::function<void(const QString &executable)>;

    /// To be called once, as soon as it is known that there is a display, in every start that will have a
    /// window or a tray icon. What is damaged or names what is not there counts as no trial: a program that
    /// starts comes first.
    [[nodiscard]] static VersionTrial begin(const InstalledVersions &installed);

    /// Instead of it in a start that finds no display. Without one nobody knows why an earlier start ended
    /// early: what began its trial and is gone begins it anew.
    static void putOff(const InstalledVersions &installed);

    VersionTrial(VersionTrial &&other) noexcept = default;
    VersionTrial &operator=(VersionTrial &&other) noexcept = default;
    ~VersionTrial() = default;
    Q_DISABLE_COPY(VersionTrial)

    [[nodiscard]] Outcome outcome() const { return m_outcome; }
    /// Path of the executable that has to take over; empty unless `rolledBack`.
    [[nodiscard]] const QString &successor() const { return m_successor; }

    /// What the copy before this one wished to be taken up: in a new version that is on trial, and in the one
    /// before it after it was put back. A pause counts only if it ends within 300 seconds from `now` (Unix
    /// time in seconds).
    [[nodiscard]] std::optional<Handover> handover(double now) const;

    /// While `inProgress`: looks again, because the other process may have left the trial to this one. Call
    /// it until the outcome is another, or for a while.
    void retry();

    /// A version that was put in place, did not come up, and of which the person has not been told; absent
    /// while there is none or while it is still this one.
    [[nodiscard]] const std::optional<QString> &givenUp() const { return m_givenUp; }
    /// The person has been told of `givenUp`.
    void setTold();

    /// While on trial: has a small process look after this one, which brings up what ROOT/current names by
    /// `start` if this one ends, or hangs, before it is confirmed. Best called before there are threads. The
    /// small process has no open files of this one; `start` is called in it.
    void watch(const Start &start, WatchTimes times);
    void watch(const Start &start) { watch(start, WatchTimes()); }

    /// The new version works, or ends because it was asked to: it stays, and the one before it is kept as
    /// ROOT/previous. Does nothing unless on trial. Takes no time: the disk is flushed in the background.
    void confirm();

    /// This start ends without having proved or disproved anything: the next one is the first. Does nothing
    /// unless on trial.
    void postpone();

private:
    explicit VersionTrial(InstalledVersions installed);

    void join(std::chrono::milliseconds patience);
    void decide(const DurableFolder &root, const TrialRecord &record);
    void rollBack(const DurableFolder &root, const TrialRecord &record);
    static void putBack(const DurableFolder &root, const TrialRecord &record);
    void takeBack(const DurableFolder &root, const TrialRecord &record);
    void giveWayIfRejected();
    void giveWay(const QString &version);
    void forgive(const DurableFolder &root) const;
    void noteGivenUp();

    InstalledVersions m_installed;
    Outcome m_outcome = Outcome::none;
    QString m_successor;
    QString m_previous;
    std::optional<Handover> m_handover;
    std::optional<QString> m_givenUp;
    /// Locked while this version's files are in use.
    FileDescriptor m_ownFolder;
    /// ROOT/trial.running, locked while on trial.
    FileDescriptor m_mark;
    /// Where the watcher hears of the confirmation.
    FileDescriptor m_watcher;
};

} // namespace quorvane

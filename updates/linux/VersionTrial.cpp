// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/linux/VersionTrial.h"

#include "updates/linux/DurableFolder.h"
#include "updates/linux/FileLock.h"
#include "updates/linux/RejectedVersions.h"
#include "updates/linux/TrialMark.h"
#include "updates/linux/TrialRecord.h"
#include "updates/linux/TrialWatcher.h"

#include <QFile>

#include <fcntl.h>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

constexpr double longestPause = 300;
constexpr std::chrono::milliseconds decisionTime{2'000};
constexpr std::chrono::milliseconds confirmationTime{50};

FileDescriptor lockedFolder(const QString &path)
{
    FileDescriptor folder(::open(QFile::encodeName(path).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    static_cast<void>(tryLock(folder, LockKind::shared));
    return folder;
}

QString linkTarget(const QString &version)
{
    return u"versions/"_s + version;
}

void endTrial(const DurableFolder &root)
{
    // In this order: a mark alone means nothing.
    root.remove(TrialRecord::file);
    TrialMark::removeAll(root);
}

/// Open for writing, because network file systems lock nothing else exclusively.
FileDescriptor openRecord(const DurableFolder &root)
{
    FileDescriptor record = root.open(TrialRecord::file, O_RDWR);
    return record.isValid() ? std::move(record) : root.open(TrialRecord::file, O_RDONLY);
}

Result<TrialRecord> readRecord(const DurableFolder &root)
{
    return TrialRecord::fromJson(root.read(TrialRecord::file).value_or(QByteArray()));
}

} // namespace

VersionTrial::VersionTrial(InstalledVersions installed)
    : m_installed(std::move(installed))
    , m_ownFolder(lockedFolder(m_installed.folder(m_installed.own())))
{
}

VersionTrial VersionTrial::begin(const InstalledVersions &installed)
{
    VersionTrial trial(installed);
    trial.join(decisionTime);
    trial.noteGivenUp();
    return trial;
}

// What did not even come to its trial has not failed for want of a display: its predecessor goes back then.
void VersionTrial::putOff(const InstalledVersions &installed)
{
    const DurableFolder root(installed.root());
    const FileDescriptor decision = openRecord(root);
    if (!decision.isValid() || lockInTime(decision, decisionTime) == LockOutcome::refused)
        return;
    const Result<TrialRecord> record = readRecord(root);
    if (record && record->version == installed.own())
        TrialMark::noteSeen(root);
    if (record && record->previous == installed.own() && TrialMark::isLeftUnseen(root))
        VersionTrial(installed).takeBack(root, *record);
    else
        TrialMark::removeUnused(root);
}

void VersionTrial::retry()
{
    if (m_outcome != Outcome::inProgress)
        return;
    m_outcome = Outcome::none;
    join(confirmationTime);
}

// Who decides holds a lock on trial.json, so that two starts at once do not both find a trial that has just
// failed. The file may be gone, with its lock, when the lock is had.
void VersionTrial::join(std::chrono::milliseconds patience)
{
    const DurableFolder root(m_installed.root());
    const FileDescriptor decision = openRecord(root);
    if (!decision.isValid())
        return giveWayIfRejected();
    if (lockInTime(decision, patience) == LockOutcome::refused) {
        m_outcome = Outcome::inProgress;
        return;
    }
    if (!root.isStill(TrialRecord::file, decision))
        return join(patience);
    const Result<TrialRecord> record = readRecord(root);
    if (record && record->version == m_installed.own())
        decide(root, *record);
    else if (record && record->previous == m_installed.own())
        takeBack(root, *record);
}

void VersionTrial::decide(const DurableFolder &root, const TrialRecord &record)
{
    m_previous = record.previous;
    TrialMark::noteSeen(root);
    TrialMark mark = TrialMark::take(root);
    switch (mark.finding) {
    case TrialMark::Finding::first:
        m_handover = record.handover;
        m_mark = std::move(mark.file);
        m_outcome = Outcome::onTrial;
        return;
    case TrialMark::Finding::inUse:
        m_outcome = Outcome::inProgress;
        return;
    case TrialMark::Finding::left:
        m_handover = record.handover;
        return rollBack(root, record);
    }
}

void VersionTrial::rollBack(const DurableFolder &root, const TrialRecord &record)
{
    const QString current = m_installed.currentVersion().value_or(m_installed.own());
    if (current != m_installed.own() && m_installed.isExecutable(current))
        return giveWay(current); // a roll back was killed at its end
    if (record.previous == m_installed.own() || !m_installed.isExecutable(record.previous))
        return endTrial(root); // nothing to go back to: maybe this one works today
    putBack(root, record);
    giveWay(record.previous);
}

// Where nothing can be written the next start comes here again.
void VersionTrial::putBack(const DurableFolder &root, const TrialRecord &record)
{
    RejectedVersions rejected = RejectedVersions::read(root);
    rejected.add(record.version, record.handover);
    static_cast<void>(rejected.write(root));
    if (!root.link("current", linkTarget(record.previous)) || !root.flush())
        return;
    endTrial(root);
    static_cast<void>(root.flush());
}

// Somebody starts the former version by its own path, and the new one has died on its trial.
void VersionTrial::takeBack(const DurableFolder &root, const TrialRecord &record)
{
    if (TrialMark::isLeft(root) && m_installed.currentVersion() == record.version)
        putBack(root, record);
}

// A start that came while another one was rolling back finds no trial any more, but is still the wrong
// version.
void VersionTrial::giveWayIfRejected()
{
    const std::optional<QString> current = m_installed.currentVersion();
    if (current && *current != m_installed.own() && m_installed.isExecutable(*current) &&
        RejectedVersions::read(DurableFolder(m_installed.root())).versions.contains(m_installed.own()))
        giveWay(*current);
}

void VersionTrial::giveWay(const QString &version)
{
    m_outcome = Outcome::rolledBack;
    m_successor = m_installed.executable(version);
}

void VersionTrial::noteGivenUp()
{
    const RejectedVersions rejected = RejectedVersions::read(DurableFolder(m_installed.root()));
    if (!rejected.untold || *rejected.untold == m_installed.own())
        return;
    m_givenUp = rejected.untold;
    if (!m_handover)
        m_handover = rejected.handover;
}

void VersionTrial::setTold()
{
    if (!m_givenUp)
        return;
    m_givenUp.reset();
    const DurableFolder root(m_installed.root());
    RejectedVersions rejected = RejectedVersions::read(root);
    rejected.untold.reset();
    rejected.handover.reset();
    static_cast<void>(rejected.write(root));
}

std::optional<Handover> VersionTrial::handover(double now) const
{
    if (!m_handover || m_outcome == Outcome::rolledBack)
        return std::nullopt;
    Handover handover = *m_handover;
    if (handover.pausedUntil && (*handover.pausedUntil <= now || *handover.pausedUntil > now + longestPause))
        handover.pausedUntil.reset();
    return handover;
}

void VersionTrial::watch(const Start &start, WatchTimes times)
{
    if (m_outcome == Outcome::onTrial)
        m_watcher = TrialWatcher::begin(m_installed.currentExecutable(), start, times);
}

void VersionTrial::confirm()
{
    if (m_outcome != Outcome::onTrial)
        return;
    m_outcome = Outcome::none;
    const DurableFolder root(m_installed.root());
    const FileDescriptor decision = openRecord(root);
    static_cast<void>(lockInTime(decision, confirmationTime));
    static_cast<void>(root.link("previous", linkTarget(m_previous)));
    endTrial(root);
    TrialWatcher::confirm(m_watcher);
    m_watcher = {};
    m_mark = {};
    forgive(root);
    root.flushInBackground();
}

void VersionTrial::postpone()
{
    if (m_outcome != Outcome::onTrial)
        return;
    m_outcome = Outcome::none;
    TrialWatcher::confirm(m_watcher);
    m_watcher = {};
    TrialMark::remove(DurableFolder(m_installed.root()));
    m_mark = {};
}

// It was given up once, and tried again.
void VersionTrial::forgive(const DurableFolder &root) const
{
    RejectedVersions rejected = RejectedVersions::read(root);
    if (rejected.versions.removeAll(m_installed.own()) == 0)
        return;
    if (rejected.untold == m_installed.own())
        rejected = {rejected.versions, std::nullopt, std::nullopt};
    static_cast<void>(rejected.write(root));
}

} // namespace quorvane

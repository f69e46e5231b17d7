// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Updater.h"

#include "async/Launch.h"
#include "async/OffThread.h"
#include "updates/Appcast.h"
#include "updates/UpdateError.h"
#include "updates/UpdateInstaller.h"
#include "updates/UpdaterDefaults.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using Phase = UpdateStatus::Phase;

/// How long the longest feed may take to be understood, on a machine that has better things to do.
constexpr std::chrono::milliseconds parsingTime{30'000};

/// Whether another try with the same archive would end in the same way.
bool isFinal(const std::error_code &error)
{
    return error == UpdateError::wrongLength || error == UpdateError::signatureInvalid ||
           error == UpdateError::archiveInvalid || error == UpdateError::wrongVersion ||
           error == UpdateError::selfTestFailed;
}

bool isUnderWay(Phase phase)
{
    return phase == Phase::downloading || phase == Phase::preparing || phase == Phase::ready;
}

} // namespace

Updater::Updater(UpdaterSetup setup, UpdaterDelegate &delegate)
    : m_setup(std::move(setup))
    , m_delegate(delegate)
    , m_feed(m_setup.trust)
    , m_archive(ArchiveDownloadSetup{.trust = m_setup.trust})
    , m_timer(m_setup.now, m_setup.random, m_setup.look)
{
    m_refusal.setInterval(m_setup.refusalLook);
    connect(&m_refusal, &QTimer::timeout, this, &Updater::tryRefusedAgain);
    connect(&m_timer, &CheckTimer::due, this, [this] { launch(check(UpdateCheck::byItself)); });
}

Result<void> Updater::start()
{
    if (m_setup.feed.scheme() != "https"_L1 || m_setup.feed.host().isEmpty())
        return Failure(make_error_code(UpdateError::setupInvalid));
    if (const Result<void> checked = m_setup.installer.check(); !checked)
        return checked;
    m_isStarted = true;
    takeDefaults();
    Q_EMIT canCheckForUpdatesChanged();
    return {};
}

bool Updater::canCheckForUpdates() const
{
    return m_isStarted && !m_isChecking && !isUnderWay(m_status.phase);
}

bool Updater::automaticallyChecksForUpdates() const
{
    return m_setup.defaults.automaticallyChecksForUpdates();
}

Result<void> Updater::setAutomaticallyChecksForUpdates(Switch enabled)
{
    const Result<void> kept = m_setup.defaults.setAutomaticallyChecksForUpdates(enabled);
    takeDefaults();
    return kept;
}

bool Updater::automaticallyDownloadsUpdates() const
{
    return m_setup.defaults.automaticallyDownloadsUpdates();
}

Result<void> Updater::setAutomaticallyDownloadsUpdates(Switch enabled)
{
    return m_setup.defaults.setAutomaticallyDownloadsUpdates(enabled);
}

void Updater::takeDefaults()
{
    if (!m_isStarted)
        return;
    if (!automaticallyChecksForUpdates())
        m_timer.stop();
    else if (!m_timer.isActive())
        m_timer.start(m_setup.defaults.lastCheck());
}

void Updater::checkForUpdates()
{
    if (canCheckForUpdates())
        launch(check(UpdateCheck::byPerson));
}

void Updater::install()
{
    if (m_isStarted && !isUnderWay(m_status.phase) && m_status.item)
        launch(obtain(*m_status.item, UpdateCheck::byPerson));
}

void Updater::stop()
{
    m_archive.cancel();
}

void Updater::installOnQuit()
{
    if (m_status.phase == Phase::ready)
        (void)m_setup.installer.activateAtNextStart(*m_status.item);
}

QCoro::Task<> Updater::check(UpdateCheck kind)
{
    if (!canCheckForUpdates()) {
        m_timer.retrySoon();
        co_return;
    }
    if (const Result<void> allowed = m_delegate.mayPerform(kind); !allowed) {
        refuse(kind, allowed.error());
        co_return;
    }
    m_refusal.stop();
    setChecking(true);
    if (kind == UpdateCheck::byPerson)
        show({.phase = Phase::checking});
    const QPointer<Updater> self(this);
    const Result<Items> items = co_await readFeed();
    if (self)
        endCheck(kind, items);
}

void Updater::refuse(UpdateCheck kind, const std::error_code &reason)
{
    if (kind == UpdateCheck::byItself) {
        m_timer.retrySoon();
        return;
    }
    show({.phase = Phase::refused, .item = m_status.item, .error = reason});
    m_refusal.start();
}

// The person was told that updates resume.
void Updater::tryRefusedAgain()
{
    if (m_status.phase != Phase::refused)
        m_refusal.stop();
    else if (m_delegate.mayPerform(UpdateCheck::byPerson))
        launch(check(UpdateCheck::byPerson));
}

QCoro::Task<Result<Updater::Items>> Updater::readFeed()
{
    const Result<QByteArray> feed = co_await m_feed.fetch(m_setup.feed);
    if (!feed)
        co_return Failure(feed.error());
    const std::function<Result<Items>()> parse = [bytes = *feed] { return Appcast::read(bytes); };
    const std::optional<Result<Items>> items = co_await offThread(parse, parsingTime);
    co_return items.value_or(Failure(make_error_code(UpdateError::feedInvalid)));
}

void Updater::endCheck(UpdateCheck kind, const Result<Items> &items)
{
    setChecking(false);
    schedule(items);
    if (isUnderWay(m_status.phase))
        return; // the person was quicker with what was known
    if (!items) {
        if (kind == UpdateCheck::byPerson)
            show({.phase = Phase::failed, .error = items.error()});
        return;
    }
    if (const auto item = Appcast::newest(*items, m_setup.installedVersion))
        take(kind, *item);
    else if (kind == UpdateCheck::byPerson)
        show({.phase = Phase::upToDate});
    else if (m_status.phase == Phase::available)
        show({}); // taken back
}

void Updater::schedule(const Result<Items> &items)
{
    const double now = m_setup.now();
    if (items)
        (void)m_setup.defaults.setLastCheck(now); // at worst it looks again sooner
    if (!automaticallyChecksForUpdates())
        return;
    if (items)
        m_timer.start(now);
    else
        m_timer.retryLater();
}

void Updater::take(UpdateCheck kind, const UpdateItem &item)
{
    // What did not come up once is tried again only for a person who asks for it.
    if (kind == UpdateCheck::byItself && m_setup.installer.hasFailed(item))
        return;
    const bool isKnown = m_status.phase == Phase::available && m_status.item == item;
    show({.phase = Phase::available, .item = item});
    const bool isWanted = automaticallyChecksForUpdates() && automaticallyDownloadsUpdates();
    const bool isKnownBad =
        kind == UpdateCheck::byItself && m_setup.defaults.refusedSignature() == item.signature;
    if (isWanted && !isKnownBad)
        launch(obtain(item, UpdateCheck::byItself));
    else if (kind == UpdateCheck::byItself && !isKnown && !isKnownBad)
        Q_EMIT found(item);
}

QCoro::Task<> Updater::obtain(UpdateItem item, UpdateCheck kind)
{
    const QPointer<Updater> self(this);
    const Result<void> prepared = co_await fetchAndPrepare(item);
    if (!self)
        co_return;
    if (prepared)
        offer(item, kind);
    else if (prepared.error() == UpdateError::downloadCancelled)
        show({.phase = Phase::available, .item = item});
    else
        fail(item, prepared.error());
}

void Updater::fail(const UpdateItem &item, const std::error_code &error)
{
    if (isFinal(error)) // else it would be fetched again each day
        (void)m_setup.defaults.setRefusedSignature(item.signature);
    show({.phase = Phase::failed, .item = item, .error = error});
}

QCoro::Task<Result<void>> Updater::fetchAndPrepare(UpdateItem item)
{
    if (m_setup.installer.isPrepared(item))
        co_return Result<void>();
    const Result<QString> file = m_setup.installer.archiveFile(item);
    if (!file)
        co_return Failure(file.error());
    const QPointer<Updater> self(this);
    const Result<void> downloaded = co_await download(item, *file);
    if (!downloaded || !self)
        co_return downloaded;
    show({.phase = Phase::preparing, .item = item});
    const Result<void> prepared = co_await m_setup.installer.prepare(item);
    co_return prepared;
}

QCoro::Task<Result<void>> Updater::download(UpdateItem item, QString file)
{
    show({.phase = Phase::downloading, .item = item});
    const ArchiveDownload::Progress progress = [this, item](qint64 bytes) {
        const double share = static_cast<double>(bytes) / static_cast<double>(item.length);
        show({.phase = Phase::downloading, .item = item, .progress = share});
    };
    const Result<void> downloaded = co_await m_archive.fetch(item, file, progress);
    co_return downloaded;
}

void Updater::offer(const UpdateItem &item, UpdateCheck kind)
{
    show({.phase = Phase::ready, .item = item});
    const std::function<void()> install = [self = QPointer(this), item] {
        if (self)
            self->installNow(item);
    };
    if (kind == UpdateCheck::byItself)
        (void)m_delegate.willInstallUpdateOnQuit(item, install); // or else when the program ends
    else if (!m_delegate.shouldPostponeRelaunchForUpdate(item, install))
        installNow(item);
}

void Updater::installNow(const UpdateItem &item)
{
    if (m_status.phase != Phase::ready || m_status.item != item)
        return;
    if (const Result<void> done = m_setup.installer.activate(item, m_setup.handover()); done)
        Q_EMIT installed();
    else
        fail(item, done.error());
}

void Updater::show(UpdateStatus status)
{
    if (m_status == status)
        return;
    const bool could = canCheckForUpdates();
    m_status = std::move(status);
    if (could != canCheckForUpdates())
        Q_EMIT canCheckForUpdatesChanged();
    Q_EMIT statusChanged();
}

void Updater::setChecking(bool isChecking)
{
    m_isChecking = isChecking;
    Q_EMIT canCheckForUpdatesChanged();
}

} // namespace quorvane

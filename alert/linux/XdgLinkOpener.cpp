// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/XdgLinkOpener.h"

#include <QStringList>
#include <QTimer>

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <utility>

using namespace Qt::StringLiterals;

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr auto stayingTime = 4s;
/// How long the service manager may take to start a unit.
constexpr auto managerPatience = 3s;

/// For systemd-run(1), which ends with the unit's main process and with its status. That process has handed
/// the link over when it ends; the browser that it may have started lives on.
QStringList unitArguments(const QString &link)
{
    // What a unit is called is logged; its command is the link and must not be.
    QStringList arguments{u"--user"_s,
                          u"--wait"_s,
                          u"--collect"_s,
                          u"--slice=app.slice"_s,
                          u"--description=Link of a meeting"_s,
                          u"--property=KillMode=process"_s,
                          u"--property=StandardOutput=null"_s,
                          u"--property=StandardError=null"_s,
                          u"--"_s,
                          u"xdg-open"_s};
    // The manager puts variables of its own in the place of single ones.
    arguments.append(QString(link).replace(u'$', u"$$"_s));
    return arguments;
}

} // namespace

/// Passes on the first of several outcomes.
struct XdgLinkOpener::Outcome
{
    std::function<void(bool opened)> done;

    [[nodiscard]] bool isSettled() const { return !done; }

    void settle(bool opened)
    {
        if (const auto once = std::exchange(done, {}))
            once(opened);
    }
};

XdgLinkOpener::XdgLinkOpener(const QProcessEnvironment &environment, Start start, QObject *parent)
    : QObject(parent)
    , m_environment(environment)
    , m_start(start)
{
}

void XdgLinkOpener::open(const QUrl &link, std::function<void(bool opened)> done)
{
    auto outcome = std::make_shared<Outcome>(Outcome{.done = std::move(done)});
    const QString encoded = QString::fromLatin1(link.toEncoded());
    switch (m_start) {
    case Start::direct:
        startDirectly(encoded, std::move(outcome));
        break;
    case Start::byServiceManager:
        startUnit(encoded, std::move(outcome));
        break;
    }
}

void XdgLinkOpener::startDirectly(const QString &link, std::shared_ptr<Outcome> outcome)
{
    QProcess *process = newProcess();
    process->setStandardErrorFile(QProcess::nullDevice());
    connect(process, &QProcess::errorOccurred, this, [outcome](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            outcome->settle(false);
    });
    connect(process, &QProcess::finished, this, [outcome](int status, QProcess::ExitStatus how) {
        outcome->settle(how == QProcess::NormalExit && status == 0);
    });
    takeStayingForSuccess(process, outcome);
    process->start(u"xdg-open"_s, {link});
}

// Whether there is a unit is what systemd-run says first. Until then a failure is its own or the manager's,
// and a link that is opened twice is better than one that is not.
void XdgLinkOpener::startUnit(const QString &link, std::shared_ptr<Outcome> outcome)
{
    QProcess *process = newProcess();
    QProcessEnvironment environment = m_environment;
    environment.insert(u"SYSTEMD_LOG_LEVEL"_s, u"info"_s);
    environment.insert(u"SYSTEMD_LOG_TARGET"_s, u"console"_s);
    process->setProcessEnvironment(environment);

    auto *patience = new QTimer(process);
    patience->setSingleShot(true);
    const auto giveUp = [this, process, patience, link, outcome] {
        patience->stop();
        disconnect(process, nullptr, this, nullptr);
        process->kill();
        startDirectly(link, outcome);
    };
    connect(patience, &QTimer::timeout, this, giveUp);
    connect(process, &QProcess::errorOccurred, this, [giveUp](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            giveUp();
    });
    connect(process, &QProcess::finished, this, giveUp);
    connect(process, &QProcess::readyReadStandardError, this, [this, process, patience, link, outcome] {
        while (process->canReadLine()) {
            if (!process->readLine().startsWith("Running as unit:"))
                continue;
            patience->stop();
            disconnect(process, nullptr, this, nullptr);
            judgeUnit(process, link, outcome);
        }
    });
    patience->start(managerPatience);
    process->start(u"systemd-run"_s, unitArguments(link));
    process->setReadChannel(QProcess::StandardError);
}

// The manager may not know the display that this program has. What ends after it has counted as opened was
// the browser, and that a person has closed it is no reason to open it again.
void XdgLinkOpener::judgeUnit(QProcess *process, const QString &link, const std::shared_ptr<Outcome> &outcome)
{
    connect(process, &QProcess::finished, this, [this, link, outcome](int status, QProcess::ExitStatus how) {
        if (how == QProcess::NormalExit && status == 0)
            outcome->settle(true);
        else if (!outcome->isSettled())
            startDirectly(link, outcome);
    });
    takeStayingForSuccess(process, outcome);
}

void XdgLinkOpener::takeStayingForSuccess(QProcess *process, const std::shared_ptr<Outcome> &outcome)
{
    auto *patience = new QTimer(process);
    patience->setSingleShot(true);
    connect(patience, &QTimer::timeout, this, [outcome] { outcome->settle(true); });
    connect(process, &QProcess::finished, patience, &QTimer::stop);
    patience->start(stayingTime);
}

// Without a parent: a QProcess that is destroyed kills its program, and that may be the browser.
QProcess *XdgLinkOpener::newProcess() const
{
    auto *process = new QProcess;
    process->setProcessEnvironment(m_environment);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setChildProcessModifier([] {
        // Signals that this program takes in its own way must reach the browser as usual.
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        setsid();
    });
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            process->deleteLater();
    });
    return process;
}

} // namespace quorvane

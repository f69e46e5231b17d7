// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "alert/linux/XdgLinkOpener.h"

#include <QProcess>
#include <QTimer>

#include <unistd.h>

#include <chrono>
#include <csignal>
#include <utility>

namespace quorvane {

namespace {

using namespace std::chrono_literals;

constexpr auto stayingTime = 4s;

/// Passes on the first of several outcomes.
struct Outcome
{
    std::function<void(bool opened)> done;

    void settle(bool opened)
    {
        if (const auto once = std::exchange(done, {}))
            once(opened);
    }
};

} // namespace

XdgLinkOpener::XdgLinkOpener(const QProcessEnvironment &environment, QObject *parent)
    : QObject(parent)
    , m_environment(environment)
{
}

void XdgLinkOpener::open(const QUrl &link, std::function<void(bool opened)> done)
{
    // Without a parent: a QProcess that is destroyed kills its program, and that may be the browser.
    auto *process = new QProcess;
    process->setProcessEnvironment(m_environment);
    process->setStandardInputFile(QProcess::nullDevice());
    process->setStandardOutputFile(QProcess::nullDevice());
    process->setStandardErrorFile(QProcess::nullDevice());
    process->setChildProcessModifier([] {
        // Signals that this program takes in its own way must reach the browser as usual.
        sigset_t none;
        sigemptyset(&none);
        sigprocmask(SIG_SETMASK, &none, nullptr);
        setsid();
    });

    auto outcome = std::make_shared<Outcome>(Outcome{.done = std::move(done)});
    connect(process, &QProcess::finished, this, [outcome](int status, QProcess::ExitStatus how) {
        outcome->settle(how == QProcess::NormalExit && status == 0);
    });
    connect(process, &QProcess::errorOccurred, this, [outcome, process](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        process->deleteLater();
        outcome->settle(false);
    });
    connect(process, &QProcess::finished, process, &QObject::deleteLater);
    QTimer::singleShot(stayingTime, this, [outcome] { outcome->settle(true); });
    process->start(QStringLiteral("xdg-open"), {QString::fromLatin1(link.toEncoded())});
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ProcessImage.h"

#include "posix/SystemError.h"

#include <QFile>

#include <algorithm>
#include <charconv>
#include <cstring>
#include <map>

#include <dirent.h>
#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

namespace quorvane {

namespace {

QByteArray nameOf(const QByteArray &variable)
{
    return variable.left(variable.indexOf('='));
}

/// What execve(2) takes; it points into `texts`.
std::vector<char *> pointersTo(QByteArrayList &texts)
{
    std::vector<char *> pointers;
    for (QByteArray &text : texts)
        pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

void closeOnExec(int descriptor)
{
    const int flags = ::fcntl(descriptor, F_GETFD);
    if (flags >= 0)
        ::fcntl(descriptor, F_SETFD, flags | FD_CLOEXEC);
}

void closeListedOnExec(DIR &listed)
{
    while (const dirent *entry = ::readdir(&listed)) {
        int descriptor = -1;
        const char *name = entry->d_name;
        std::from_chars(name, name + std::strlen(name), descriptor);
        if (descriptor > STDERR_FILENO)
            closeOnExec(descriptor);
    }
}

/// Marked and not closed: other threads still use them.
void closeFilesOnExec()
{
    if (::close_range(STDERR_FILENO + 1, ~0U, CLOSE_RANGE_CLOEXEC) == 0)
        return;
    // A kernel before 5.11.
    if (DIR *listed = ::opendir("/proc/self/fd")) {
        closeListedOnExec(*listed);
        ::closedir(listed);
        return;
    }
    for (int descriptor = STDERR_FILENO + 1; descriptor < ::sysconf(_SC_OPEN_MAX); ++descriptor)
        closeOnExec(descriptor);
}

/// The state of signals, put back where it was unless the process has gone by then. Handlers need no care:
/// no program inherits them.
class SignalState final
{
public:
    SignalState(const std::vector<int> &ignored, const sigset_t &held)
    {
        for (int signal = 1; signal <= SIGRTMAX; ++signal) {
            struct sigaction present{};
            if (::sigaction(signal, nullptr, &present) != 0)
                continue;
            const bool shouldIgnore = std::ranges::find(ignored, signal) != ignored.end();
            if ((present.sa_handler == SIG_IGN) == shouldIgnore)
                continue;
            struct sigaction wanted{};
            wanted.sa_handler = shouldIgnore ? SIG_IGN : SIG_DFL;
            if (::sigaction(signal, &wanted, nullptr) == 0)
                m_former[signal] = present;
        }
        ::pthread_sigmask(SIG_SETMASK, &held, &m_held);
    }
    ~SignalState()
    {
        ::pthread_sigmask(SIG_SETMASK, &m_held, nullptr);
        for (const auto &[signal, action] : m_former)
            ::sigaction(signal, &action, nullptr);
    }
    Q_DISABLE_COPY_MOVE(SignalState)

private:
    std::map<int, struct sigaction> m_former;
    sigset_t m_held{};
};

} // namespace

ProcessImage::ProcessImage(int argc, char **argv)
{
    for (int i = 1; i < argc; ++i)
        m_arguments.append(argv[i]);
    for (char **variable = environ; *variable; ++variable)
        m_environment.append(*variable);
    for (int signal = 1; signal <= SIGRTMAX; ++signal) {
        struct sigaction action{};
        if (::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN)
            m_ignoredSignals.push_back(signal);
    }
    ::pthread_sigmask(SIG_SETMASK, nullptr, &m_heldSignals);
}

std::error_code ProcessImage::replaceBy(const QString &executable, const Changes &changes) const
{
    const QByteArray path = QFile::encodeName(executable);
    QByteArrayList arguments{path};
    std::ranges::copy_if(m_arguments, std::back_inserter(arguments), [&](const QByteArray &argument) {
        return !changes.withoutArguments.contains(argument);
    });
    QByteArrayList dropped = changes.withoutVariables;
    for (const QByteArray &variable : changes.variables)
        dropped.append(nameOf(variable));
    QByteArrayList environment = changes.variables;
    std::ranges::copy_if(m_environment, std::back_inserter(environment),
                         [&](const QByteArray &variable) { return !dropped.contains(nameOf(variable)); });

    const std::vector<char *> argumentPointers = pointersTo(arguments);
    const std::vector<char *> environmentPointers = pointersTo(environment);
    ::prctl(PR_SET_TIMERSLACK, 0UL); // another program would inherit what was asked for here
    closeFilesOnExec();
    const SignalState signalsAsAtStart(m_ignoredSignals, m_heldSignals);
    ::execve(path.constData(), argumentPointers.data(), environmentPointers.data());
    return systemError();
}

} // namespace quorvane

// SPDX-FileCopyrightText: 2026 The Quorvane authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "commands/SelfTestCommand.h"

#include "commands/ExitStatus.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace quorvane::SelfTestCommand {

namespace {

[[noreturn]] void performAlone(const std::function<Finding()> &test, const PrintLine &print)
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    std::signal(SIGALRM, SIG_DFL);
    ::alarm(static_cast<unsigned>(timeLimit.count()));
    const Finding finding = test();
    print(finding.sentence);
    std::fflush(stdout);
    std::_Exit(finding.status); // some libraries wait for their threads otherwise
}

} // namespace

int run(const std::function<Finding()> &test, const PrintLine &print)
{
    const pid_t tester = ::fork();
    if (tester == 0)
        performAlone(test, print);
    int ended = 0;
    if (tester > 0 && TEMP_FAILURE_RETRY(::waitpid(tester, &ended, 0)) == tester && WIFEXITED(ended))
        return WEXITSTATUS(ended);
    print(u"This version of Quorvane crashes or hangs on this machine."_s);
    return ExitStatus::selfTestFailed;
}

} // namespace quorvane::SelfTestCommand

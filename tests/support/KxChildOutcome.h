// SPDX-License-Identifier: MIT
#pragma once

#include <QtCore/QByteArray>

#include <csignal>
#include <cstdio>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

/// What became of code that may end the program.
struct KxChildOutcome
{
    QByteArray standardError;
    bool aborted = false;  ///< Ended by abort().
    bool finished = false; ///< Ran to its end.
};

/// Runs `code` in a copy of this process and tells what it wrote to standard error and how it ended. For short
/// code with little output.
template<typename Code>
KxChildOutcome kxRunInChild(Code code)
{
    KxChildOutcome outcome;
    int ends[2];
    std::fflush(nullptr);
    if (pipe(ends) != 0)
        return outcome;
    const pid_t child = fork();
    if (child == 0) {
        const rlimit noCore = {0, 0};
        setrlimit(RLIMIT_CORE, &noCore);
        std::signal(SIGABRT, SIG_DFL);
        dup2(ends[1], STDERR_FILENO);
        code();
        std::fflush(stderr);
        _exit(0);
    }
    close(ends[1]);
    char buffer[512];
    for (ssize_t count = 0; (count = read(ends[0], buffer, sizeof buffer)) > 0;)
        outcome.standardError.append(buffer, static_cast<int>(count));
    close(ends[0]);
    int status = 0;
    waitpid(child, &status, 0);
    outcome.aborted = WIFSIGNALED(status) && WTERMSIG(status) == SIGABRT;
    outcome.finished = WIFEXITED(status) && WEXITSTATUS(status) == 0;
    return outcome;
}

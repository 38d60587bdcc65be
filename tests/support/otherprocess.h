// Work in a process of its own, as that of a second program that runs beside this one.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

namespace kdtest {

/// The result of `work()`, from 0 to 255; -1 when the process ended otherwise.
template <class Work>
int inOtherProcess(Work work) {
    const pid_t child = fork();
    if (child == 0) _exit(work());
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

}  // namespace kdtest

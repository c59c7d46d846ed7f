#include "ToolRun.h"

#include "RealTool.h"

#include <cerrno>
#include <csignal>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace zolt::companion {

namespace {

constexpr int cannotStart = 127;
constexpr int handedOn[] = {SIGINT, SIGTERM, SIGHUP};

volatile sig_atomic_t runningTool = 0;

void handOn(int signal)
{
    if (runningTool > 0) ::kill(runningTool, signal);
}

void setHandler(void (*handler)(int))
{
    struct sigaction action = {};
    action.sa_handler = handler;
    for (const int signal : handedOn)
        ::sigaction(signal, &action, nullptr);
}

void block(int how)
{
    sigset_t signals;
    sigemptyset(&signals);
    for (const int signal : handedOn)
        sigaddset(&signals, signal);
    ::sigprocmask(how, &signals, nullptr);
}

[[noreturn]] void start(const std::string& path, std::vector<std::string>& arguments)
{
    ::prctl(PR_SET_PDEATHSIG, SIGTERM); // the tool never outlives the companion that cleans up behind it
    setHandler(SIG_DFL);
    block(SIG_UNBLOCK);
    std::vector<char*> vector;
    for (std::string& argument : arguments)
        vector.push_back(argument.data());
    vector.push_back(nullptr);
    becomeTool(path, vector.data());
    ::_exit(cannotStart);
}

} // namespace

int runTool(const std::string& path, std::vector<std::string> arguments)
{
    block(SIG_BLOCK); // no signal gets lost between the start and the handler that hands it on
    const pid_t child = ::fork();
    if (child == 0) start(path, arguments);
    runningTool = child;
    setHandler(handOn);
    block(SIG_UNBLOCK);
    int status = -1;
    while (child > 0 && ::waitpid(child, &status, 0) < 0 && errno == EINTR)
        continue;
    block(SIG_BLOCK); // until this process ends: what is cleaned up from here on is cleaned up whole
    runningTool = 0;
    return status;
}

int statusToExitWith(int waitStatus)
{
    if (waitStatus == -1) return cannotStart;
    if (!WIFSIGNALED(waitStatus)) return WEXITSTATUS(waitStatus);
    const int signal = WTERMSIG(waitStatus);
    ::signal(signal, SIG_DFL);
    block(SIG_UNBLOCK);
    ::raise(signal);
    return 128 + signal; // one that does not end a process
}

} // namespace zolt::companion

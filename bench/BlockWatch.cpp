#include "BlockWatch.h"

#include <algorithm>
#include <chrono>
#include <dlfcn.h>
#include <poll.h>
#include <unistd.h>

namespace {

using SteadyClock = std::chrono::steady_clock;

// Plain and initialised at load time: threads call the function below before `main` and after it.
SteadyClock::time_point lastWait;
double longestBlock = 0;

bool isMainThread() {
    return gettid() == getpid();
}

void noteWait() {
    const auto block = std::chrono::duration<double, std::milli>(SteadyClock::now() - lastWait).count();
    longestBlock = std::max(longestBlock, block);
}

} // namespace

/// Stands before the C library's function, in which Qt's own event loop waits and nothing else of the main thread does.
extern "C" int ppoll(pollfd *files, nfds_t count, const timespec *timeout, const sigset_t *signals) {
    static const auto wait = reinterpret_cast<decltype(&ppoll)>(dlsym(RTLD_NEXT, "ppoll"));
    if (!isMainThread())
        return wait(files, count, timeout, signals);
    noteWait();
    const int result = wait(files, count, timeout, signals);
    lastWait = SteadyClock::now();
    return result;
}

void BlockWatch::restart() {
    longestBlock = 0;
    lastWait = SteadyClock::now();
}

double BlockWatch::longest() {
    return longestBlock;
}

#include "DevServer.h"
#include "fill/FillMaildir.h"
#include "mime/MIMEPart.h"

#include <clocale>
#include <csignal>
#include <iostream>
#include <thread>

namespace {

sigset_t stopSignals() {
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    return signals;
}

/// Does not return: connections that are merely kept alive may not delay the end.
[[noreturn]] void stopAtSignal(DevServer &server) {
    const auto signals = stopSignals();
    int signal = 0;
    sigwait(&signals, &signal);
    server.stop();
    std::_Exit(0);
}

void serve(const ServerOptions &options) {
    // Before any thread starts, so that all of them leave these to the one that waits for them.
    const auto signals = stopSignals();
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::signal(SIGPIPE, SIG_IGN);
    // File names in archives are converted by way of the locale.
    std::setlocale(LC_CTYPE, "C.UTF-8");
    startMIME();
    DevServer server(options);
    std::cout << "listening " << server.bind() << std::endl;
    std::thread listener([&server] { server.run(); });
    stopAtSignal(server);
}

void runCommand(const ServerOptions &options) {
    if (options.wantsHelp)
        std::cout << serverUsage;
    else if (options.fill)
        fillMaildir(*options.fill, std::chrono::system_clock::now());
    else
        serve(options);
}

} // namespace

int main(int argc, char **argv) {
    try {
        runCommand(parseServerOptions({argv + 1, argv + argc}));
        return 0;
    } catch (const std::exception &error) {
        std::cerr << "corvanite-devserver: " << error.what() << std::endl;
        return 1;
    }
}

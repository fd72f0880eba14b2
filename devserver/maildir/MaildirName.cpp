#include "maildir/MaildirName.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>

MaildirName::MaildirName(const std::string &fileName) {
    const auto colon = fileName.rfind(":2,");
    base = fileName.substr(0, colon);
    if (colon != std::string::npos)
        flags = fileName.substr(colon + 3);
}

void MaildirName::set(char flag, bool on) {
    std::erase(flags, flag);
    if (on)
        flags.insert(std::upper_bound(flags.begin(), flags.end(), flag), flag);
}

std::string uniqueMaildirBase() {
    static std::atomic<unsigned> count = 0;
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const auto micros = std::chrono::duration_cast<std::chrono::microseconds>(now).count();
    char host[256] = "localhost";
    gethostname(host, sizeof host - 1);
    return std::to_string(micros / 1000000) + ".M" + std::to_string(micros % 1000000) + "P" + std::to_string(getpid()) +
           "Q" + std::to_string(++count) + "." + host;
}

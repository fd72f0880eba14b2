#include "PeakMemory.h"

#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>

namespace {

double statusValue(const std::string &wanted) {
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        std::istringstream words(line);
        std::string key;
        double kilobytes = 0;
        if (words >> key >> kilobytes && key == wanted)
            return kilobytes / 1024;
    }
    throw std::runtime_error("the system does not tell the memory of a process");
}

} // namespace

double PeakMemory::restart() {
    // The value 5 sets the peak back, see proc(5).
    if (!(std::ofstream("/proc/self/clear_refs") << 5 << std::flush))
        throw std::runtime_error("the peak of the memory cannot be set back");
    return statusValue("VmRSS:");
}

double PeakMemory::value() {
    return statusValue("VmHWM:");
}

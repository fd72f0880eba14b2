#include "ProcessTree.h"

#include <filesystem>
#include <fstream>
#include <numeric>
#include <sstream>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

std::string processFile(pid_t process, const std::string &name) {
    std::ifstream file("/proc/" + std::to_string(process) + "/" + name);
    std::stringstream content;
    content << file.rdbuf();
    return content.str();
}

std::vector<pid_t> children(pid_t process) {
    std::vector<pid_t> found;
    for (const auto &task : fs::directory_iterator("/proc/" + std::to_string(process) + "/task")) {
        std::ifstream list(task.path() / "children");
        for (pid_t child = 0; list >> child;)
            found.push_back(child);
    }
    return found;
}

std::vector<pid_t> withDescendants(pid_t process) {
    std::vector<pid_t> all{process};
    for (std::size_t next = 0; next < all.size(); ++next)
        for (const auto child : children(all[next]))
            all.push_back(child);
    return all;
}

double memoryOf(pid_t process) {
    std::istringstream lines(processFile(process, "smaps_rollup"));
    for (std::string word; lines >> word;)
        if (double kilobytes = 0; word == "Pss:" && lines >> kilobytes)
            return kilobytes / 1024;
    return 0;
}

/// The first number of a thread's `schedstat` is its time on a processor in nanoseconds.
double processorTimeOf(pid_t process) {
    double milliseconds = 0;
    for (const auto &task : fs::directory_iterator("/proc/" + std::to_string(process) + "/task"))
        if (double nanoseconds = 0; std::ifstream(task.path() / "schedstat") >> nanoseconds)
            milliseconds += nanoseconds / 1e6;
    return milliseconds;
}

double sum(const std::vector<pid_t> &processes, double (*use)(pid_t)) {
    return std::accumulate(processes.begin(), processes.end(), 0.0,
                           [use](double total, pid_t process) { return total + use(process); });
}

} // namespace

double ProcessTree::memory() const {
    return sum(withDescendants(m_root), memoryOf);
}

double ProcessTree::processorTime() const {
    return sum(withDescendants(m_root), processorTimeOf);
}

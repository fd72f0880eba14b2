#include "ProcessTree.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
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

/// Kilobytes in memory.
struct Usage {
    double own = 0;
    /// By the file that is mapped.
    std::map<std::string, double> shared;
};

bool isHeading(const std::string &line) {
    return line.find('-') < line.find(' ');
}

std::string mappedFile(const std::string &heading) {
    const auto slash = heading.find('/');
    return slash == std::string::npos ? std::string() : heading.substr(slash);
}

Usage usageOf(pid_t process) {
    Usage usage;
    std::istringstream lines(processFile(process, "smaps"));
    std::string file;
    for (std::string line; std::getline(lines, line);) {
        if (isHeading(line)) {
            file = mappedFile(line);
            continue;
        }
        std::istringstream words(line);
        std::string key;
        double kilobytes = 0;
        words >> key >> kilobytes;
        if (key == "Private_Clean:" || key == "Private_Dirty:")
            usage.own += kilobytes;
        else if (key == "Shared_Clean:" || key == "Shared_Dirty:")
            usage.shared[file] += kilobytes;
    }
    return usage;
}

/// The first number of a thread's `schedstat` is its time on a processor in nanoseconds.
double processorTimeOf(pid_t process) {
    double milliseconds = 0;
    for (const auto &task : fs::directory_iterator("/proc/" + std::to_string(process) + "/task"))
        if (double nanoseconds = 0; std::ifstream(task.path() / "schedstat") >> nanoseconds)
            milliseconds += nanoseconds / 1e6;
    return milliseconds;
}

} // namespace

double ProcessTree::memory() const {
    Usage all;
    for (const auto process : withDescendants(m_root)) {
        const auto usage = usageOf(process);
        all.own += usage.own;
        for (const auto &[file, kilobytes] : usage.shared)
            all.shared[file] = std::max(all.shared[file], kilobytes);
    }
    for (const auto &file : all.shared)
        all.own += file.second;
    return all.own / 1024;
}

double ProcessTree::processorTime() const {
    double total = 0;
    for (const auto process : withDescendants(m_root))
        total += processorTimeOf(process);
    return total;
}

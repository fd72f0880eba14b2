#include "RunningServer.h"

#include <cstdlib>
#include <stdexcept>

namespace {

std::vector<std::string> serverCommand(const std::vector<std::string> &arguments) {
    std::vector<std::string> command{DEVSERVER_PROGRAM};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return command;
}

} // namespace

TemporaryFolder::TemporaryFolder() {
    auto pattern = (std::filesystem::temp_directory_path() / "devserver-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary folder");
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::filesystem::remove_all(m_path);
}

RunningServer::RunningServer(const std::vector<std::string> &arguments)
    : m_program(serverCommand(arguments)) {
    const auto line = m_program.readLine();
    const std::string start = "listening ";
    if (!line.starts_with(start))
        throw std::runtime_error("the server said: " + line);
    m_address = line.substr(start.size());
}

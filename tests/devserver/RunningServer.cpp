#include "RunningServer.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <stdexcept>

namespace {
constexpr int startMilliseconds = 60000;
}

TemporaryFolder::TemporaryFolder() {
    auto pattern = (std::filesystem::temp_directory_path() / "devserver-test-XXXXXX").string();
    if (!mkdtemp(pattern.data()))
        throw std::runtime_error("no temporary folder");
    m_path = pattern;
}

TemporaryFolder::~TemporaryFolder() {
    std::filesystem::remove_all(m_path);
}

RunningServer::RunningServer(const std::vector<std::string> &arguments) {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    m_process = fork();
    if (m_process == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        std::vector<char *> values{const_cast<char *>(DEVSERVER_PROGRAM)};
        for (const auto &argument : arguments)
            values.push_back(const_cast<char *>(argument.c_str()));
        values.push_back(nullptr);
        execv(DEVSERVER_PROGRAM, values.data());
        _exit(127);
    }
    close(ends[1]);
    m_output = ends[0];
    const auto line = readLine();
    const std::string start = "listening ";
    if (!line.starts_with(start)) {
        kill();
        throw std::runtime_error("the server said: " + line);
    }
    m_address = line.substr(start.size());
}

RunningServer::~RunningServer() {
    kill();
    close(m_output);
}

std::string RunningServer::readLine() const {
    std::string line;
    pollfd readable{m_output, POLLIN, 0};
    for (char c = 0; poll(&readable, 1, startMilliseconds) > 0 && read(m_output, &c, 1) == 1 && c != '\n';)
        line += c;
    return line;
}

void RunningServer::kill() {
    if (m_process > 0)
        ::kill(m_process, SIGKILL);
    wait();
}

int RunningServer::terminate() {
    ::kill(m_process, SIGTERM);
    return wait();
}

int RunningServer::wait() {
    if (m_process <= 0)
        return -1;
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#include "RunningProgram.h"

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <stdexcept>

namespace {
constexpr int patienceMilliseconds = 60000;
}

RunningProgram::RunningProgram(const std::vector<std::string> &command) {
    int ends[2];
    if (pipe(ends) != 0)
        throw std::runtime_error("no pipe");
    m_process = fork();
    if (m_process == 0) {
        dup2(ends[1], STDOUT_FILENO);
        close(ends[0]);
        close(ends[1]);
        std::vector<char *> values;
        for (const auto &argument : command)
            values.push_back(const_cast<char *>(argument.c_str()));
        values.push_back(nullptr);
        execvp(values.front(), values.data());
        _exit(127);
    }
    close(ends[1]);
    m_output = ends[0];
}

RunningProgram::~RunningProgram() {
    kill();
    close(m_output);
}

std::string RunningProgram::readLine() const {
    std::string line;
    pollfd readable{m_output, POLLIN, 0};
    for (char c = 0; poll(&readable, 1, patienceMilliseconds) > 0 && read(m_output, &c, 1) == 1 && c != '\n';)
        line += c;
    return line;
}

void RunningProgram::kill() {
    if (m_process > 0)
        ::kill(m_process, SIGKILL);
    wait();
}

int RunningProgram::terminate() {
    ::kill(m_process, SIGTERM);
    return wait();
}

int RunningProgram::wait() {
    if (m_process <= 0)
        return -1;
    int status = 0;
    waitpid(m_process, &status, 0);
    m_process = -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

#pragma once

#include "RunningProgram.h"

#include <filesystem>
#include <string>
#include <vector>

/// A folder that goes away with its owner.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder &) = delete;
    TemporaryFolder &operator=(const TemporaryFolder &) = delete;

    const std::filesystem::path &path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// The server program as a process of its own; killed with its owner.
class RunningServer {
public:
    /// Returns once the program listens; fails when it ends before.
    explicit RunningServer(const std::vector<std::string> &arguments);

    /// "http://127.0.0.1:1234"
    const std::string &address() const { return m_address; }

    void kill() { m_program.kill(); }
    int terminate() { return m_program.terminate(); }

private:
    RunningProgram m_program;
    std::string m_address;
};

#pragma once

#include <sys/types.h>

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
    ~RunningServer();
    RunningServer(const RunningServer &) = delete;
    RunningServer &operator=(const RunningServer &) = delete;

    /// "http://127.0.0.1:1234"
    const std::string &address() const { return m_address; }

    /// As a crash or power cut would; returns when the process is gone.
    void kill();
    /// As a polite stop; returns the exit status.
    int terminate();

private:
    std::string readLine() const;
    int wait();

    pid_t m_process = -1;
    int m_output = -1;
    std::string m_address;
};

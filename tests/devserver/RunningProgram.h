#pragma once

#include <sys/types.h>

#include <string>
#include <vector>

/// A process of its own, whose standard output is read line by line; killed with its owner.
class RunningProgram {
public:
    /// `command` is the program, looked up as a shell does, and its arguments.
    explicit RunningProgram(const std::vector<std::string> &command);
    ~RunningProgram();
    RunningProgram(const RunningProgram &) = delete;
    RunningProgram &operator=(const RunningProgram &) = delete;

    /// Without its line end; ends early when the program does, or says nothing for a minute.
    std::string readLine() const;

    /// As a crash or power cut would; returns when the process is gone.
    void kill();
    /// As a polite stop; returns the exit status.
    int terminate();
    /// Waits for the end and returns the exit status; -1 for an end by a signal.
    int wait();

private:
    pid_t m_process = -1;
    int m_output = -1;
};

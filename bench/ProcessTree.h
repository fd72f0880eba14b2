#pragma once

#include <sys/types.h>

/// What a process and all its descendants use.
class ProcessTree {
public:
    explicit ProcessTree(pid_t root)
        : m_root(root) {}

    /// Megabytes of memory, what is shared with other processes counted in proportion.
    double memory() const;
    /// Milliseconds of processor time since their start.
    double processorTime() const;

private:
    pid_t m_root;
};

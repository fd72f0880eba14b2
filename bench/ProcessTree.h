#pragma once

#include <sys/types.h>

/// What a process and all its descendants use.
class ProcessTree {
public:
    explicit ProcessTree(pid_t root)
        : m_root(root) {}

    /// Megabytes of memory. What they share among themselves counts once, and what they share with others counts whole:
    /// this program maps the same libraries and must not make them look lighter.
    double memory() const;
    /// Milliseconds of processor time since their start.
    double processorTime() const;

private:
    pid_t m_root;
};

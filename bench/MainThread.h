#pragma once

#include <functional>

/// Runs the event loop of the main thread as the program itself does, without pauses of its own.
class MainThread {
public:
    /// Milliseconds until the condition held at the end of a turn of the event loop, when what was painted has gone to
    /// the display. Fails with `std::runtime_error` after twenty seconds.
    static double runUntil(const std::function<bool()> &condition);
    static void run(int milliseconds);
};

#pragma once

/// How long the main thread has kept events waiting: the time from one of the event loop's waits to the next.
class BlockWatch {
public:
    /// Forgets what was so far.
    static void restart();
    /// Milliseconds of the longest block since `restart`.
    static double longest();
};

#pragma once

/// The most memory that this process held at any one time, in megabytes.
class PeakMemory {
public:
    /// Forgets what was so far; the memory that is held now. Fails with `std::runtime_error`.
    static double restart();
    static double value();
};

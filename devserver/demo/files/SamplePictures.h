#pragma once

#include <string>

/// Pictures drawn for the demo mailbox, each in the format that its name ends in.
struct SamplePictures {
    static std::string sunsetPNG();
    static std::string lighthousePNG();
    /// Water levels of a day as bars.
    static std::string tideChartPNG();
    /// Forty pixels square, as in a signature.
    static std::string logoPNG();
    static std::string flagGIF();
    static std::string harbourJPEG();
};

#pragma once

#include <string>
#include <utility>
#include <vector>

/// Small valid files for attachments.
struct SampleFiles {
    /// One page in a standard font. The lines must be ASCII.
    static std::string pdf(const std::string &title, const std::vector<std::string> &lines);
    /// Each entry is a path and its bytes.
    static std::string zip(const std::vector<std::pair<std::string, std::string>> &entries);
    /// A word processor's document of plain paragraphs.
    static std::string docx(const std::vector<std::string> &paragraphs);
    /// A tone of 8 kHz mono. @param seconds its length
    static std::string wav(int seconds);
    static std::string tideTableCSV();
};

#pragma once

#include <string>
#include <string_view>
#include <vector>

/// Plain text of mail: what programs do to it before it goes out. Paragraphs are divided by empty lines.
struct MailText {
    static std::vector<std::string> lines(std::string_view text);
    static std::string escapedHTML(std::string_view text);
    /// One <p> a paragraph. Lines that were wrapped are joined, short ones keep their breaks.
    static std::string html(std::string_view text);
    /// "> " before each line.
    static std::string quoted(std::string_view text);
    /// Wrapped lines end in a space and lines that need it are stuffed, RFC 3676.
    static std::string flowed(std::string_view text);
    static std::string replaced(std::string text, std::string_view what, std::string_view with);
};

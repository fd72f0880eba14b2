#pragma once

#include <chrono>
#include <string>
#include <string_view>

/// Values of header fields as they stand on the wire.
struct HeaderEncoding {
    /// Unstructured text: encoded words of RFC 2047 where the text is not plain ASCII or could not be folded.
    static std::string text(std::string_view utf8, const std::string &charset = "UTF-8");
    static std::string encodedWords(std::string_view utf8, const std::string &charset);
    /// A display name and an address in angle brackets.
    static std::string address(std::string_view name, std::string_view address, const std::string &charset = "UTF-8");
    /// A parameter with its leading "; ", in the continuations of RFC 2231 where it is long or not ASCII.
    static std::string parameter(std::string_view name, std::string_view utf8);
    /// RFC 5322 date with a numeric zone. @param utcOffset minutes east of Greenwich
    static std::string date(std::chrono::system_clock::time_point time, int utcOffset);
};

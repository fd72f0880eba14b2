#pragma once

#include <string>

/// `bytes` as valid UTF-8 without NULs. An empty, unknown or lying charset falls back to UTF-8 and then to
/// Windows-1252; what cannot be decoded becomes U+FFFD. Never fails.
std::string decodeText(const std::string &bytes, const std::string &charset);

/// `text` with every invalid sequence and NUL replaced by U+FFFD.
std::string validUTF8(const std::string &text);

/// On one line: control characters become blanks, runs of white space one blank, none at the ends.
std::string singleLine(const std::string &text);

/// For comparison without regard to letter case.
std::string foldCase(const std::string &text);

/// The first `characters` characters at most.
std::string firstCharacters(const std::string &text, std::size_t characters);

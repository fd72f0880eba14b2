#pragma once

#include <string>
#include <string_view>

/// Content transfer encodings of RFC 2045 and conversion between character sets. Lines end in LF, as in a Maildir.
struct TransferEncoding {
    /// Wrapped at 76 columns, with a line end after the last line.
    static std::string base64(std::string_view bytes);
    static std::string base64Line(std::string_view bytes);
    /// Line feeds stay line ends; everything else outside printable ASCII is escaped.
    static std::string quotedPrintable(std::string_view text);
    /// Throws std::invalid_argument for an unknown character set or a text that it cannot hold.
    static std::string convert(std::string_view utf8, const std::string &charset);
    /// 64 bits of FNV-1a as 16 hexadecimal digits: boundaries and message identifiers that depend on content alone.
    static std::string fingerprint(std::string_view bytes);
};

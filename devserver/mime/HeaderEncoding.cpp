#include "mime/HeaderEncoding.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <vector>

#include "mime/TransferEncoding.h"

namespace {
// An encoded word may have 75 characters; half of that in characters of UTF-8 is safe in every character set used.
constexpr size_t encodedWordInput = 30;
constexpr size_t parameterChunk = 54;
// Lines are folded at blanks only, and what is longer than this would make one too long.
constexpr size_t longestPlainWord = 60;

bool isASCII(std::string_view text) {
    return std::all_of(text.begin(), text.end(), [](unsigned char c) { return c >= 32 && c < 127; });
}

bool canStandPlain(std::string_view text) {
    size_t word = 0, longest = 0;
    for (const char c : text) {
        word = c == ' ' ? 0 : word + 1;
        longest = std::max(longest, word);
    }
    return isASCII(text) && longest <= longestPlainWord && text.find("=?") == std::string_view::npos;
}

bool continuesCharacter(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::vector<std::string_view> chunks(std::string_view utf8, size_t limit) {
    std::vector<std::string_view> out;
    while (!utf8.empty()) {
        size_t length = std::min(limit, utf8.size());
        while (length < utf8.size() && continuesCharacter(utf8[length]))
            --length;
        out.push_back(utf8.substr(0, length));
        utf8.remove_prefix(length);
    }
    return out;
}

std::string folded(std::string_view text) {
    std::string out;
    size_t column = 12;
    while (!text.empty()) {
        const size_t word = std::min(text.find(' ', 1), text.size());
        if (column + word > 76 && text.front() == ' ' && column > 12) {
            out += '\n';
            column = 0;
        }
        out += text.substr(0, word);
        column += word;
        text.remove_prefix(word);
    }
    return out;
}

std::string quoted(std::string_view text) {
    std::string out = "\"";
    for (const char c : text)
        out += c == '"' || c == '\\' ? std::string{'\\', c} : std::string{c};
    return out + '"';
}

std::string percentEncoded(std::string_view bytes) {
    std::string out;
    for (const unsigned char c : bytes) {
        std::array<char, 4> escape{};
        std::snprintf(escape.data(), escape.size(), "%%%02X", c);
        out +=
            std::isalnum(c) || c == '.' || c == '-' || c == '_' ? std::string(1, static_cast<char>(c)) : escape.data();
    }
    return out;
}
} // namespace

std::string HeaderEncoding::text(std::string_view utf8, const std::string &charset) {
    return canStandPlain(utf8) ? folded(utf8) : encodedWords(utf8, charset);
}

std::string HeaderEncoding::encodedWords(std::string_view utf8, const std::string &charset) {
    std::string out;
    for (const std::string_view chunk : chunks(utf8, encodedWordInput)) {
        out += out.empty() ? "" : "\n ";
        out += "=?" + charset + "?B?" + TransferEncoding::base64Line(TransferEncoding::convert(chunk, charset)) + "?=";
    }
    return out;
}

std::string HeaderEncoding::address(std::string_view name, std::string_view address, const std::string &charset) {
    const std::string bracketed = "<" + std::string(address) + ">";
    if (name.empty())
        return std::string(address);
    if (!canStandPlain(name) || name.size() > longestPlainWord)
        return encodedWords(name, charset) + " " + bracketed;
    const bool special = name.find_first_of("()<>[]:;@\\,.\"") != std::string_view::npos;
    return (special ? quoted(name) : std::string(name)) + " " + bracketed;
}

std::string HeaderEncoding::parameter(std::string_view name, std::string_view utf8) {
    if (isASCII(utf8) && utf8.size() <= parameterChunk)
        return ";\n " + std::string(name) + "=" + quoted(utf8);
    std::string out;
    int index = 0;
    for (const std::string_view chunk : chunks(utf8, parameterChunk / 3)) {
        const char *charset = index == 0 ? "UTF-8''" : "";
        out += ";\n " + std::string(name) + "*" + std::to_string(index++) + "*=" + charset + percentEncoded(chunk);
    }
    return out;
}

std::string HeaderEncoding::date(std::chrono::system_clock::time_point time, int utcOffset) {
    const std::time_t local = std::chrono::system_clock::to_time_t(time) + utcOffset * 60;
    std::tm fields{};
    gmtime_r(&local, &fields);
    std::array<char, 40> day{};
    std::strftime(day.data(), day.size(), "%a, %d %b %Y %H:%M:%S", &fields);
    std::array<char, 64> out{};
    std::snprintf(out.data(), out.size(), "%s %c%02d%02d", day.data(), utcOffset < 0 ? '-' : '+',
                  std::abs(utcOffset) / 60, std::abs(utcOffset) % 60);
    return out.data();
}

#include "mime/TextDecoding.h"

#include <glib.h>

#include <algorithm>
#include <memory>

namespace {

using Text = std::unique_ptr<gchar, decltype(&g_free)>;

bool isUTF8(const std::string &text) {
    return g_utf8_validate_len(text.data(), text.size(), nullptr) && text.find('\0') == std::string::npos;
}

/// Senders label Windows-1252 as these.
std::string realCharset(const std::string &charset) {
    gchar *lower = g_ascii_strdown(charset.c_str(), -1);
    const std::string name = Text(lower, g_free).get();
    if (name == "iso-8859-1" || name == "iso8859-1" || name == "latin1" || name == "cp1252")
        return "windows-1252";
    const bool saysNothing = name == "us-ascii" || name == "ascii" || name == "utf8" || name == "unknown-8bit";
    return saysNothing ? "" : name;
}

/// Replaces what the converter rejects, byte by byte. False when there is no such converter.
bool convert(const std::string &bytes, const std::string &charset, std::string &result) {
    GIConv converter = g_iconv_open("UTF-8", charset.c_str());
    if (converter == reinterpret_cast<GIConv>(-1))
        return false;
    result.clear();
    gchar *in = const_cast<gchar *>(bytes.data());
    gsize inLeft = bytes.size();
    gchar buffer[4096];
    while (inLeft > 0) {
        gchar *out = buffer;
        gsize outLeft = sizeof buffer;
        const gsize outcome = g_iconv(converter, &in, &inLeft, &out, &outLeft);
        const bool failed = outcome == static_cast<gsize>(-1) && errno != E2BIG;
        result.append(buffer, out);
        if (failed) {
            result += "\xEF\xBF\xBD";
            ++in;
            --inLeft;
        }
    }
    g_iconv_close(converter);
    return true;
}

} // namespace

std::string decodeText(const std::string &bytes, const std::string &charset) {
    const auto name = realCharset(charset);
    std::string result;
    const bool trustCharset = !name.empty() && name != "utf-8" && name != "windows-1252";
    if (trustCharset && convert(bytes, name, result))
        return validUTF8(result);
    if (name == "utf-8" || isUTF8(bytes))
        return validUTF8(bytes);
    return convert(bytes, "windows-1252", result) ? validUTF8(result) : validUTF8(bytes);
}

std::string validUTF8(const std::string &text) {
    if (isUTF8(text))
        return text;
    const Text valid(g_utf8_make_valid(text.data(), static_cast<gssize>(text.size())), g_free);
    return valid.get();
}

std::string singleLine(const std::string &text) {
    std::string line;
    for (const char c : text) {
        const bool blank = static_cast<unsigned char>(c) <= ' ' || c == 0x7f;
        if (!blank)
            line += c;
        else if (!line.empty() && line.back() != ' ')
            line += ' ';
    }
    if (line.ends_with(' '))
        line.pop_back();
    return line;
}

std::string foldCase(const std::string &text) {
    const Text folded(g_utf8_casefold(text.data(), static_cast<gssize>(text.size())), g_free);
    return folded.get();
}

std::string firstCharacters(const std::string &text, std::size_t characters) {
    const char *position = text.c_str();
    for (; characters > 0 && *position != '\0'; --characters)
        position = g_utf8_next_char(position);
    return text.substr(0, static_cast<std::size_t>(position - text.c_str()));
}

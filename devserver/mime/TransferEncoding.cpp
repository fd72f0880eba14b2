#include "mime/TransferEncoding.h"

#include <cstdint>
#include <iconv.h>
#include <memory>
#include <stdexcept>

namespace {
constexpr std::string_view base64Alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
constexpr std::string_view hexDigits = "0123456789ABCDEF";
constexpr size_t quotedPrintableColumns = 75;

std::string escapedByte(unsigned char byte) {
    return {'=', hexDigits[byte >> 4], hexDigits[byte & 15]};
}

bool isLiteral(std::string_view text, size_t i) {
    const unsigned char byte = text[i];
    const bool endsLine = i + 1 == text.size() || text[i + 1] == '\n';
    if (byte == ' ' || byte == '\t')
        return !endsLine;
    return byte > 32 && byte < 127 && byte != '=';
}

struct Converter {
    explicit Converter(const std::string &charset)
        : handle(iconv_open(charset.c_str(), "UTF-8")) {
        if (handle == reinterpret_cast<iconv_t>(-1))
            throw std::invalid_argument("no such character set: " + charset);
    }
    ~Converter() { iconv_close(handle); }
    Converter(const Converter &) = delete;
    Converter &operator=(const Converter &) = delete;
    iconv_t handle;
};
} // namespace

std::string TransferEncoding::base64Line(std::string_view bytes) {
    std::string out;
    out.reserve(bytes.size() / 3 * 4 + 4);
    for (size_t i = 0; i < bytes.size(); i += 3) {
        uint32_t group = 0;
        for (size_t k = 0; k < 3; ++k)
            group = group << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0u);
        for (size_t k = 0; k < 4; ++k)
            out += i + k <= bytes.size() ? base64Alphabet[group >> (18 - 6 * k) & 63] : '=';
    }
    return out;
}

std::string TransferEncoding::base64(std::string_view bytes) {
    const std::string line = base64Line(bytes);
    std::string out;
    for (size_t i = 0; i < line.size(); i += 76)
        out.append(line, i, 76).append("\n");
    return out;
}

std::string TransferEncoding::quotedPrintable(std::string_view text) {
    std::string out;
    size_t column = 0;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '\n') {
            out += '\n';
            column = 0;
            continue;
        }
        const std::string unit = isLiteral(text, i) ? std::string(1, text[i]) : escapedByte(text[i]);
        if (column + unit.size() > quotedPrintableColumns) {
            out += "=\n";
            column = 0;
        }
        out += unit;
        column += unit.size();
    }
    return out;
}

std::string TransferEncoding::convert(std::string_view utf8, const std::string &charset) {
    const Converter converter(charset);
    std::string input(utf8), output(utf8.size() * 4 + 16, '\0');
    char *in = input.data(), *out = output.data();
    size_t inLeft = input.size(), outLeft = output.size();
    const bool converted = iconv(converter.handle, &in, &inLeft, &out, &outLeft) != static_cast<size_t>(-1);
    if (!converted || iconv(converter.handle, nullptr, nullptr, &out, &outLeft) == static_cast<size_t>(-1))
        throw std::invalid_argument("text does not fit the character set " + charset);
    output.resize(output.size() - outLeft);
    return output;
}

std::string TransferEncoding::fingerprint(std::string_view bytes) {
    uint64_t hash = 14695981039346656037ull;
    for (const unsigned char byte : bytes)
        hash = (hash ^ byte) * 1099511628211ull;
    std::string out;
    for (int shift = 60; shift >= 0; shift -= 4)
        out += hexDigits[hash >> shift & 15];
    return out;
}

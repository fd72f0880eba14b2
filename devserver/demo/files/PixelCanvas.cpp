#include "demo/files/PixelCanvas.h"

#include <stdexcept>
#include <zlib.h>

namespace {
std::string bigEndian(uint32_t value) {
    std::string out;
    for (int shift = 24; shift >= 0; shift -= 8)
        out += static_cast<char>(value >> shift & 255);
    return out;
}

std::string chunk(const std::string &type, const std::string &data) {
    const std::string content = type + data;
    const auto checksum = crc32(0, reinterpret_cast<const Bytef *>(content.data()), static_cast<uInt>(content.size()));
    return bigEndian(static_cast<uint32_t>(data.size())) + content + bigEndian(static_cast<uint32_t>(checksum));
}

std::string deflated(const std::string &bytes) {
    uLongf size = compressBound(bytes.size());
    std::string out(size, '\0');
    if (compress(reinterpret_cast<Bytef *>(out.data()), &size, reinterpret_cast<const Bytef *>(bytes.data()),
                 bytes.size()) != Z_OK)
        throw std::runtime_error("cannot compress a picture");
    out.resize(size);
    return out;
}

uint8_t between(uint8_t from, uint8_t to, int part, int whole) {
    return static_cast<uint8_t>(from + (to - from) * part / whole);
}
} // namespace

PixelCanvas::PixelCanvas(int width, int height, PixelColor fill)
    : m_width(width)
    , m_height(height)
    , m_pixels(static_cast<size_t>(width) * height, fill) {}

PixelColor PixelCanvas::pixel(int x, int y) const {
    return m_pixels.at(static_cast<size_t>(y) * m_width + x);
}

void PixelCanvas::set(int x, int y, PixelColor color) {
    if (x >= 0 && y >= 0 && x < m_width && y < m_height)
        m_pixels[static_cast<size_t>(y) * m_width + x] = color;
}

void PixelCanvas::verticalGradient(int top, int bottom, PixelColor from, PixelColor to) {
    for (int y = top; y < bottom; ++y) {
        PixelColor color{};
        for (size_t i = 0; i < color.size(); ++i)
            color[i] = between(from[i], to[i], y - top, bottom - top);
        rectangle(0, y, m_width, 1, color);
    }
}

void PixelCanvas::rectangle(int x, int y, int width, int height, PixelColor color) {
    for (int row = y; row < y + height; ++row)
        for (int column = x; column < x + width; ++column)
            set(column, row, color);
}

void PixelCanvas::disc(int centreX, int centreY, int radius, PixelColor color) {
    for (int y = -radius; y <= radius; ++y)
        for (int x = -radius; x <= radius; ++x)
            if (x * x + y * y <= radius * radius)
                set(centreX + x, centreY + y, color);
}

std::string PixelCanvas::png() const {
    std::string rows;
    for (int y = 0; y < m_height; ++y) {
        rows += '\0'; // no filter
        for (int x = 0; x < m_width; ++x)
            for (const uint8_t component : pixel(x, y))
                rows += static_cast<char>(component);
    }
    const std::string trueColor("\x08\x02\x00\x00\x00", 5);
    return "\x89PNG\r\n\x1a\n" + chunk("IHDR", bigEndian(m_width) + bigEndian(m_height) + trueColor) +
           chunk("IDAT", deflated(rows)) + chunk("IEND", "");
}

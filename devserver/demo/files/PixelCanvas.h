#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

using PixelColor = std::array<uint8_t, 3>;

/// A small RGB picture for the demo mailbox's images and charts.
class PixelCanvas {
public:
    PixelCanvas(int width, int height, PixelColor fill);

    int width() const { return m_width; }
    int height() const { return m_height; }
    PixelColor pixel(int x, int y) const;
    void verticalGradient(int top, int bottom, PixelColor from, PixelColor to);
    void rectangle(int x, int y, int width, int height, PixelColor color);
    void disc(int centreX, int centreY, int radius, PixelColor color);
    std::string png() const;

private:
    void set(int x, int y, PixelColor color);

    int m_width, m_height;
    std::vector<PixelColor> m_pixels;
};

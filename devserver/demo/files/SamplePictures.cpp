#include "demo/files/SamplePictures.h"

#include <cmath>

#include "demo/files/PixelCanvas.h"

namespace {
void drawSea(PixelCanvas &canvas, int horizon, PixelColor light, PixelColor dark) {
    canvas.verticalGradient(horizon, canvas.height(), light, dark);
    for (int i = 0; i < 60; ++i) {
        const int y = horizon + 4 + i * i * (canvas.height() - horizon) / 3800;
        canvas.rectangle(i * 97 % canvas.width(), y, 14 + i, 1, light);
    }
}

std::string littleEndian16(int value) {
    return {static_cast<char>(value & 255), static_cast<char>(value >> 8)};
}
} // namespace

std::string SamplePictures::sunsetPNG() {
    PixelCanvas canvas(560, 300, {255, 255, 255});
    canvas.verticalGradient(0, 190, {36, 52, 98}, {250, 170, 96});
    canvas.disc(380, 168, 42, {255, 226, 150});
    drawSea(canvas, 190, {214, 120, 92}, {30, 40, 74});
    canvas.rectangle(0, 182, 190, 8, {38, 36, 56});
    canvas.rectangle(150, 150, 6, 34, {38, 36, 56});
    return canvas.png();
}

std::string SamplePictures::lighthousePNG() {
    PixelCanvas canvas(420, 320, {255, 255, 255});
    canvas.verticalGradient(0, 220, {120, 178, 220}, {224, 238, 246});
    drawSea(canvas, 220, {92, 150, 178}, {28, 78, 112});
    canvas.disc(210, 262, 70, {96, 108, 92});
    for (int i = 0; i < 6; ++i)
        canvas.rectangle(192 - i, 90 + i * 20, 36 + 2 * i, 20,
                         i % 2 ? PixelColor{250, 250, 250} : PixelColor{196, 52, 46});
    canvas.rectangle(186, 80, 48, 10, {54, 58, 66});
    canvas.rectangle(198, 58, 24, 22, {255, 236, 160});
    canvas.disc(210, 56, 13, {54, 58, 66});
    return canvas.png();
}

std::string SamplePictures::tideChartPNG() {
    PixelCanvas canvas(480, 200, {247, 249, 251});
    for (int line = 40; line < 200; line += 40)
        canvas.rectangle(0, line, 480, 1, {218, 225, 232});
    for (int hour = 0; hour < 24; ++hour) {
        const int level = static_cast<int>(95 + 70 * std::sin(hour * 0.506 + 0.6));
        canvas.rectangle(6 + hour * 20, 190 - level, 14, level,
                         level > 140 ? PixelColor{212, 96, 62} : PixelColor{38, 110, 158});
    }
    return canvas.png();
}

std::string SamplePictures::logoPNG() {
    PixelCanvas canvas(40, 40, {16, 62, 92});
    canvas.disc(20, 15, 6, {240, 190, 80});
    for (int wave = 0; wave < 3; ++wave)
        for (int x = 0; x < 40; ++x)
            canvas.rectangle(x, 24 + wave * 5 + static_cast<int>(1.5 * std::sin(x * 0.6)), 1, 2, {220, 236, 244});
    return canvas.png();
}

std::string SamplePictures::flagGIF() {
    constexpr int width = 96, height = 64;
    std::string out = "GIF89a" + littleEndian16(width) + littleEndian16(height) + std::string("\x81\0\0", 3);
    for (const PixelColor color :
         {PixelColor{20, 60, 110}, PixelColor{250, 250, 250}, PixelColor{200, 40, 50}, PixelColor{250, 200, 60}})
        out.append(color.begin(), color.end());
    out += "," + littleEndian16(0) + littleEndian16(0) + littleEndian16(width) + littleEndian16(height) +
           std::string(1, '\0');
    // Eight-bit codes without compression: a clear code (128) often enough keeps the code size from growing.
    out += '\x07';
    for (int y = 0; y < height; ++y) {
        out += static_cast<char>(width + 1);
        out += '\x80';
        for (int x = 0; x < width; ++x)
            out += static_cast<char>(x < 32 ? 0 : y < 21 ? 3 : y < 43 ? 1 : 2);
    }
    return out + std::string("\x01\x81\x00;", 4);
}

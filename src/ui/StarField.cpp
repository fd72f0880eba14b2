#include "ui/StarField.h"

#include <algorithm>
#include <cstdint>

namespace {

/// A number from 0 to 1 that looks random and is the same for the same seed.
double scatter(uint32_t seed) {
    const uint32_t x = (seed ^ (seed >> 13)) * 0x4bf19f61u;
    return double((x & 0xffff) ^ (x >> 16)) / 65535.0;
}

Star star(uint32_t index, uint32_t seed, double width, double height) {
    const bool isBright = index % 17 == 0;
    return {.position = {width * scatter(seed - 120), height * scatter(seed)},
            .radius = isBright ? 1.3 : scatter(seed - 146) * 0.45 + 0.55,
            .opacity = isBright ? 0.72 : scatter(seed - 102) * 0.3 + 0.2,
            .hasCross = index % 31 == 0};
}

} // namespace

StarField starField(double width, double height) {
    const auto count = uint32_t(std::clamp(width * height / 2400, 30.0, 230.0));
    StarField field{.orbit = {0.2 * width, 0.85 * height, 1.8 * width, 0.38 * height}};
    uint32_t seed = 193;
    for (uint32_t index = 0; index < count; ++index, seed += 0x165667b1u)
        field.stars.push_back(star(index, seed, width, height));
    return field;
}

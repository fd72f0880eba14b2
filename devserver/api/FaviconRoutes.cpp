#include "api/APIRoutes.h"
#include "demo/files/PixelCanvas.h"

namespace {

constexpr int side = 64;

/// FNV-1a, so that a domain looks the same on every run.
std::uint32_t hashOf(const std::string &text) {
    std::uint32_t hash = 2166136261;
    for (const char character : text)
        hash = (hash ^ static_cast<unsigned char>(character)) * 16777619;
    return hash;
}

PixelColor colorOf(std::uint32_t hash) {
    const auto component = [&](int shift) { return static_cast<std::uint8_t>(40 + (hash >> shift) % 150); };
    return {component(4), component(12), component(20)};
}

std::string iconOf(std::uint32_t hash) {
    PixelCanvas canvas(side, side, colorOf(hash));
    canvas.verticalGradient(0, side, colorOf(hash), colorOf(hash >> 3));
    canvas.disc(side / 2, side / 2, side / 4, {255, 255, 255});
    return canvas.png();
}

std::string domainOf(const std::string &url) {
    const auto start = url.find("://");
    const auto host = start == std::string::npos ? url : url.substr(start + 3);
    return host.substr(0, host.find('/'));
}

APIResponse favicon(const APIRequest &request) {
    const auto hash = hashOf(domainOf(request.queryText("url")));
    if (hash % 2 == 0)
        throw APIError(404, "This domain has no icon");
    APIResponse response;
    response.contentType = "image/png";
    response.body = iconOf(hash);
    return response;
}

} // namespace

void addFaviconRoutes(Router &router, ServerContext &) {
    router.add("GET", "faviconV2", favicon, Access::Everybody);
}

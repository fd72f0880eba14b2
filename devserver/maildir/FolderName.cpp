#include "maildir/FolderName.h"

#include "http/APIError.h"

#include <glib.h>

#include <algorithm>
#include <memory>

namespace {

constexpr std::size_t longestName = 200;

std::string convert(const std::string &text, const char *to, const char *from) {
    gsize written = 0;
    const std::unique_ptr<gchar, decltype(&g_free)> result(
        g_convert(text.data(), static_cast<gssize>(text.size()), to, from, nullptr, &written, nullptr), g_free);
    return result ? std::string(result.get(), written) : std::string();
}

void refuse(const std::string &path, const char *why) {
    throw APIError(400, "The folder name \"" + path + "\" " + why);
}

} // namespace

std::string folderPathOfDirectory(const std::string &directoryName) {
    const auto encoded = directoryName.substr(1);
    auto path = convert(encoded, "UTF-8", "UTF-7-IMAP");
    // A name that is no modified UTF-7 stands for itself, as long as it can be written as JSON.
    if (path.empty())
        path = g_utf8_validate(encoded.data(), static_cast<gssize>(encoded.size()), nullptr) ? encoded : "";
    std::replace(path.begin(), path.end(), '.', '/');
    return path;
}

std::string directoryOfNewFolder(const std::string &path) {
    const auto isControl = [](unsigned char c) { return c < 0x20 || c == 0x7f; };
    if (path.empty() || std::any_of(path.begin(), path.end(), isControl))
        refuse(path, "is empty or holds control characters");
    if (path.find('.') != std::string::npos || path.find('\\') != std::string::npos)
        refuse(path, "holds a dot or a backslash");
    if (path.front() == '/' || path.back() == '/' || path.find("//") != std::string::npos)
        refuse(path, "has an empty part");
    if (g_ascii_strcasecmp(path.c_str(), "INBOX") == 0)
        refuse(path, "is reserved");
    auto encoded = convert(path, "UTF-7-IMAP", "UTF-8");
    if (encoded.empty() || encoded.size() > longestName)
        refuse(path, "is too long or not UTF-8");
    // "/" may stand inside a base64 run only as ",", so that each one here separates two parts.
    std::replace(encoded.begin(), encoded.end(), '/', '.');
    return "." + encoded;
}

std::string folderDisplayName(const std::string &path) {
    return path.substr(path.rfind('/') + 1);
}

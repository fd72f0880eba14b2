#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

enum class PartEncoding { SevenBit, EightBit, QuotedPrintable, Base64 };

/// One MIME entity: its header fields and a body that already has its transfer encoding.
struct DemoPart {
    std::vector<std::pair<std::string, std::string>> headers;
    std::string body;

    std::string bytes() const;
    DemoPart &&with(std::string name, std::string value) &&;
};

struct TextFormat {
    std::string subtype = "plain";
    std::string charset = "utf-8";
    PartEncoding encoding = PartEncoding::QuotedPrintable;
    /// Appended to the content type as it stands, with its leading "; ".
    std::string parameters = {};
};

struct DemoFile {
    std::string name, type, bytes;
};

DemoPart textPart(std::string_view utf8, const TextFormat &format = {});
DemoPart htmlPart(std::string_view utf8);
DemoPart attachmentPart(const DemoFile &file);
/// An image that HTML names by "cid:" and the identifier.
DemoPart inlinePart(const DemoFile &file, const std::string &contentID);
DemoPart messagePart(std::string_view message, const std::string &name);
/// @param parameters appended to the content type as it stands, with its leading "; "
DemoPart multipart(const std::string &subtype, const std::vector<DemoPart> &parts, const std::string &parameters = {});

#include "demo/mime/DemoPart.h"

#include "mime/HeaderEncoding.h"
#include "mime/TransferEncoding.h"

namespace {
std::string encodingName(PartEncoding encoding) {
    switch (encoding) {
    case PartEncoding::SevenBit:
        return "7bit";
    case PartEncoding::EightBit:
        return "8bit";
    case PartEncoding::QuotedPrintable:
        return "quoted-printable";
    case PartEncoding::Base64:
        break;
    }
    return "base64";
}

std::string encoded(const std::string &bytes, PartEncoding encoding) {
    if (encoding == PartEncoding::QuotedPrintable)
        return TransferEncoding::quotedPrintable(bytes);
    return encoding == PartEncoding::Base64 ? TransferEncoding::base64(bytes) : bytes;
}

DemoPart filePart(const DemoFile &file, const std::string &disposition) {
    return {{{"Content-Type", file.type + HeaderEncoding::parameter("name", file.name)},
             {"Content-Disposition", disposition + HeaderEncoding::parameter("filename", file.name)},
             {"Content-Transfer-Encoding", "base64"}},
            TransferEncoding::base64(file.bytes)};
}
} // namespace

std::string DemoPart::bytes() const {
    std::string out;
    for (const auto &[name, value] : headers)
        out += name + ": " + value + "\n";
    return out + "\n" + body;
}

DemoPart &&DemoPart::with(std::string name, std::string value) && {
    headers.emplace_back(std::move(name), std::move(value));
    return std::move(*this);
}

DemoPart textPart(std::string_view utf8, const TextFormat &format) {
    const std::string bytes = TransferEncoding::convert(utf8, format.charset);
    return {{{"Content-Type", "text/" + format.subtype + "; charset=" + format.charset + format.parameters},
             {"Content-Transfer-Encoding", encodingName(format.encoding)}},
            encoded(bytes, format.encoding)};
}

DemoPart htmlPart(std::string_view utf8) {
    return textPart(utf8, {.subtype = "html"});
}

DemoPart attachmentPart(const DemoFile &file) {
    return filePart(file, "attachment");
}

DemoPart inlinePart(const DemoFile &file, const std::string &contentID) {
    return filePart(file, "inline").with("Content-ID", "<" + contentID + ">");
}

DemoPart messagePart(std::string_view message, const std::string &name) {
    return {{{"Content-Type", "message/rfc822" + HeaderEncoding::parameter("name", name)},
             {"Content-Disposition", "attachment" + HeaderEncoding::parameter("filename", name)}},
            std::string(message)};
}

DemoPart multipart(const std::string &subtype, const std::vector<DemoPart> &parts, const std::string &parameters) {
    std::string content;
    for (const DemoPart &part : parts)
        content += part.bytes();
    const std::string boundary = "=_" + TransferEncoding::fingerprint(content);
    std::string body;
    for (const DemoPart &part : parts)
        body += "--" + boundary + "\n" + part.bytes() + "\n";
    return {{{"Content-Type", "multipart/" + subtype + parameters + ";\n boundary=\"" + boundary + "\""}},
            body + "--" + boundary + "--\n"};
}

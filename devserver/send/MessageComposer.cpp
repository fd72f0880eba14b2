#include "send/MessageComposer.h"

#include "accounts/Secrets.h"
#include "mime/HTMLText.h"
#include "mime/HeaderEncoding.h"
#include "mime/MIMEPart.h"
#include "mime/TextDecoding.h"
#include "send/InlineImages.h"

#include <regex>

namespace {

using Object = GMimeOwner<GMimeObject>;

struct MIMEType {
    std::string type, subtype;
};

/// Whole messages and multiparts may not be encoded (RFC 2046, 5.2.1), and only encoded bytes arrive as they left.
MIMEType readType(const std::string &text) {
    static const std::regex form(R"(([a-z0-9!#$&^_.+-]+)/([a-z0-9!#$&^_.+-]+))", std::regex::icase);
    std::smatch parts;
    const bool isUsable = text.size() < 128 && std::regex_match(text, parts, form);
    if (!isUsable || foldCase(parts[1]) == "message" || foldCase(parts[1]) == "multipart")
        return {"application", "octet-stream"};
    return {parts[1], parts[2]};
}

/// As it stands: the library's own encoded words and parameters are longer than receivers have to read.
void setHeader(GMimeObject *object, const char *name, const std::string &value) {
    g_mime_object_set_header(object, name, "", nullptr);
    GMimeHeader *header = g_mime_header_list_get_header(g_mime_object_get_header_list(object), name);
    g_mime_header_set_raw_value(header, (" " + value + "\n").c_str());
}

Object makePart(const MIMEType &type, const std::string &bytes, GMimeContentEncoding encoding) {
    GMimePart *part = g_mime_part_new_with_type(type.type.c_str(), type.subtype.c_str());
    const GMimeOwner stream(g_mime_stream_mem_new_with_buffer(bytes.data(), bytes.size()));
    const GMimeOwner content(g_mime_data_wrapper_new_with_stream(stream.get(), GMIME_CONTENT_ENCODING_DEFAULT));
    g_mime_part_set_content(part, content.get());
    g_mime_part_set_content_encoding(part, encoding);
    return Object(GMIME_OBJECT(part));
}

std::string withPlainLineEnds(const std::string &text) {
    std::string lines;
    lines.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] != '\r')
            lines += text[i];
        else if (i + 1 == text.size() || text[i + 1] != '\n')
            lines += '\n';
    }
    return lines;
}

Object textPart(const char *subtype, const std::string &text) {
    auto part = makePart({"text", subtype}, withPlainLineEnds(text), GMIME_CONTENT_ENCODING_QUOTEDPRINTABLE);
    g_mime_object_set_content_type_parameter(part.get(), "charset", "utf-8");
    return part;
}

Object filePart(const OutgoingFile &file, const std::string &disposition) {
    const auto wish = singleLine(file.name);
    const auto name = wish.empty() ? "attachment" : wish;
    const auto type = readType(file.contentType);
    auto part = makePart(type, file.bytes, GMIME_CONTENT_ENCODING_BASE64);
    setHeader(part.get(), "Content-Type", type.type + "/" + type.subtype + HeaderEncoding::parameter("name", name));
    setHeader(part.get(), "Content-Disposition", disposition + HeaderEncoding::parameter("filename", name));
    return part;
}

Object imagePart(const InlineImage &image, std::size_t number) {
    const auto suffix = readType(image.contentType).subtype;
    auto part = filePart(
        {"image" + std::to_string(number) + "." + suffix.substr(0, suffix.find('+')), image.contentType, image.bytes},
        "inline");
    g_mime_object_set_content_id(part.get(), image.contentID.c_str());
    return part;
}

/// The one part itself where there is no other.
Object multipart(const char *subtype, std::vector<Object> parts) {
    if (parts.size() == 1)
        return std::move(parts.front());
    auto *multipart = g_mime_multipart_new_with_subtype(subtype);
    for (const auto &part : parts)
        g_mime_multipart_add(multipart, part.get());
    return Object(GMIME_OBJECT(multipart));
}

Object bodyPart(const OutgoingMessage &outgoing) {
    const auto lifted = liftImages(outgoing.html, outgoing.from.address.substr(outgoing.from.address.rfind('@') + 1));
    std::vector<Object> page;
    page.push_back(textPart("html", lifted.html));
    for (const auto &image : lifted.images)
        page.push_back(imagePart(image, page.size()));
    std::vector<Object> forms;
    forms.push_back(textPart("plain", textOfHTML(lifted.html) + "\n"));
    forms.push_back(multipart("related", std::move(page)));
    std::vector<Object> all;
    all.push_back(multipart("alternative", std::move(forms)));
    for (const auto &file : outgoing.files)
        all.push_back(filePart(file, "attachment"));
    return multipart("mixed", std::move(all));
}

void setAddresses(GMimeObject *message, const char *name, const std::vector<MessageAddress> &addresses) {
    std::string list;
    for (const auto &[shown, address] : addresses)
        list += (list.empty() ? "" : ",\n ") + HeaderEncoding::address(shown, address);
    if (!list.empty())
        setHeader(message, name, list);
}

void addHeaders(GMimeObject *message, const OutgoingMessage &outgoing) {
    const auto domain = outgoing.from.address.substr(outgoing.from.address.rfind('@') + 1);
    setHeader(message, "Date", HeaderEncoding::date(std::chrono::system_clock::now(), 0));
    setHeader(message, "Message-ID", "<" + randomHex(16) + "@" + domain + ">");
    setAddresses(message, "From", {outgoing.from});
    setAddresses(message, "Reply-To", outgoing.replyTo);
    setAddresses(message, "To", outgoing.to);
    setAddresses(message, "Cc", outgoing.cc);
    setHeader(message, "Subject", HeaderEncoding::text(singleLine(outgoing.subject)));
}

std::string wireBytes(GMimeMessage *message) {
    const std::unique_ptr<GMimeFormatOptions, decltype(&g_mime_format_options_free)> format(g_mime_format_options_new(),
                                                                                            g_mime_format_options_free);
    g_mime_format_options_set_newline_format(format.get(), GMIME_NEWLINE_FORMAT_DOS);
    const GMimeOwner stream(g_mime_stream_mem_new());
    g_mime_object_write_to_stream(GMIME_OBJECT(message), format.get(), stream.get());
    return bytesOfStream(stream.get());
}

} // namespace

std::string composeMessage(const OutgoingMessage &outgoing) {
    const MIMEMessage message(g_mime_message_new(FALSE));
    addHeaders(GMIME_OBJECT(message.get()), outgoing);
    const auto body = bodyPart(outgoing);
    g_mime_message_set_mime_part(message.get(), body.get());
    return wireBytes(message.get());
}

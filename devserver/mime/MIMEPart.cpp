#include "mime/MIMEPart.h"

#include "mime/TextDecoding.h"

#include <algorithm>
#include <regex>

namespace {

constexpr int deepestNesting = 50;

bool isAddressHeader(std::string_view line) {
    for (const std::string_view name : {"to", "cc", "bcc", "from", "sender", "reply-to", "resent-"}) {
        if (line.size() > name.size() && g_ascii_strncasecmp(line.data(), name.data(), name.size()) == 0)
            return true;
    }
    return false;
}

/// The library recurses for each address group inside another one, until the stack ends. What no honest header holds
/// loses its further colons.
std::string withoutDeepGroups(std::string bytes) {
    constexpr int mostGroups = 200;
    int groups = 0;
    bool inAddresses = false;
    for (std::size_t start = 0; start < bytes.size();) {
        const auto end = std::min(bytes.find('\n', start), bytes.size());
        const auto line = std::string_view(bytes).substr(start, end - start);
        const bool continues = line.starts_with(' ') || line.starts_with('\t');
        groups = continues ? groups : 0;
        inAddresses = continues ? inAddresses : isAddressHeader(line);
        for (auto i = start; inAddresses && i < end; ++i) {
            if (bytes[i] == ':' && ++groups > mostGroups)
                bytes[i] = ' ';
        }
        start = end + 1;
    }
    return bytes;
}

void collect(GMimeObject *object, const std::string &number, bool isAlternative, int depth,
             std::vector<MIMELeaf> &leaves) {
    if (!object || depth > deepestNesting)
        return;
    if (!GMIME_IS_MULTIPART(object)) {
        leaves.push_back({object, number.empty() ? "1" : number, isAlternative});
        return;
    }
    auto *multipart = GMIME_MULTIPART(object);
    const bool alternative = MIMELeaf{object, {}, false}.is("multipart", "alternative");
    const auto prefix = number.empty() ? "" : number + ".";
    for (int i = 0; i < g_mime_multipart_get_count(multipart); ++i)
        collect(g_mime_multipart_get_part(multipart, i), prefix + std::to_string(i + 1), isAlternative || alternative,
                depth + 1, leaves);
}

/// What has no type, or none that can be read, is plain text.
bool namesType(GMimeObject *object) {
    const char *type = g_mime_object_get_header(object, "Content-Type");
    return type && std::string_view(type).find('/') != std::string_view::npos;
}

std::string attachedMessageName(GMimeObject *object) {
    GMimeMessage *inner = g_mime_message_part_get_message(GMIME_MESSAGE_PART(object));
    const char *subject = inner ? g_mime_message_get_subject(inner) : nullptr;
    return (subject && *subject ? singleLine(validUTF8(subject)) : "message") + ".eml";
}

/// The charset an HTML page names for itself.
std::string metaCharset(const std::string &html) {
    static const std::regex meta(R"(<meta[^>]{0,200}charset\s*=\s*["']?\s*([A-Za-z0-9_:.-]{1,40}))", std::regex::icase);
    std::smatch found;
    const auto head = html.substr(0, 2048);
    return std::regex_search(head, found, meta) ? found[1].str() : std::string();
}

} // namespace

void startMIME() {
    g_mime_init();
}

MIMEMessage parseMessage(const std::string &original) {
    const auto bytes = withoutDeepGroups(original);
    const GMimeOwner stream(g_mime_stream_mem_new_with_buffer(bytes.data(), bytes.size()));
    const GMimeOwner parser(g_mime_parser_new_with_stream(stream.get()));
    GMimeMessage *message = g_mime_parser_construct_message(parser.get(), nullptr);
    return MIMEMessage(message ? message : g_mime_message_new(FALSE));
}

std::string bytesOfStream(GMimeStream *stream) {
    const GByteArray *array = g_mime_stream_mem_get_byte_array(GMIME_STREAM_MEM(stream));
    return {reinterpret_cast<const char *>(array->data), array->len};
}

bool MIMELeaf::is(const char *type, const char *subtype) const {
    GMimeContentType *contentType = g_mime_object_get_content_type(object);
    return contentType && g_mime_content_type_is_type(contentType, type, subtype);
}

bool MIMELeaf::isAttachment() const {
    GMimeContentDisposition *disposition = g_mime_object_get_content_disposition(object);
    const char *kind = disposition ? g_mime_content_disposition_get_disposition(disposition) : nullptr;
    const bool told = kind && g_ascii_strcasecmp(kind, "attachment") == 0;
    const bool readable = is("text", "plain") || is("text", "html") || !namesType(object);
    const bool isFile = !isAlternative && number != "1" && !fileName().empty();
    return told || !readable || isFile;
}

std::string MIMELeaf::contentType() const {
    const std::unique_ptr<gchar, decltype(&g_free)> type(
        g_mime_content_type_get_mime_type(g_mime_object_get_content_type(object)), g_free);
    const std::unique_ptr<gchar, decltype(&g_free)> lower(g_ascii_strdown(type.get(), -1), g_free);
    return singleLine(validUTF8(lower.get()));
}

std::string MIMELeaf::fileName() const {
    if (GMIME_IS_MESSAGE_PART(object))
        return attachedMessageName(object);
    const char *name = GMIME_IS_PART(object) ? g_mime_part_get_filename(GMIME_PART(object)) : nullptr;
    const auto clean = singleLine(validUTF8(name ? name : ""));
    return clean.substr(clean.find_last_of("/\\") + 1);
}

std::string MIMELeaf::contentID() const {
    const char *id = g_mime_object_get_content_id(object);
    return singleLine(validUTF8(id ? id : ""));
}

std::string MIMELeaf::content() const {
    const GMimeOwner stream(g_mime_stream_mem_new());
    if (GMIME_IS_MESSAGE_PART(object)) {
        if (GMimeMessage *inner = g_mime_message_part_get_message(GMIME_MESSAGE_PART(object)))
            g_mime_object_write_to_stream(GMIME_OBJECT(inner), nullptr, stream.get());
    } else if (GMIME_IS_PART(object)) {
        if (GMimeDataWrapper *wrapper = g_mime_part_get_content(GMIME_PART(object)))
            g_mime_data_wrapper_write_to_stream(wrapper, stream.get());
    }
    return bytesOfStream(stream.get());
}

std::string MIMELeaf::text() const {
    const auto bytes = content();
    const char *charset = g_mime_object_get_content_type_parameter(object, "charset");
    const auto name = charset ? std::string(charset) : is("text", "html") ? metaCharset(bytes) : std::string();
    return decodeText(bytes, name);
}

std::vector<MIMELeaf> leavesOf(const MIMEMessage &message) {
    std::vector<MIMELeaf> leaves;
    collect(g_mime_message_get_mime_part(message.get()), "", false, 0, leaves);
    return leaves;
}

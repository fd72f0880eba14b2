#include "mime/MessageContent.h"

#include "mime/HTMLText.h"

#include <algorithm>

namespace {

/// Larger inline images stay attachments, so that one message cannot make an answer of hundreds of megabytes.
constexpr std::size_t largestInlineImage = 8 * 1024 * 1024;

bool isBody(const MIMELeaf &leaf) {
    return !leaf.isAttachment();
}

/// Several readable parts follow each other, save where they are forms of the same content.
void addBody(const MIMELeaf &leaf, MessageContent &content) {
    if (leaf.is("text", "html")) {
        content.html += leaf.text();
        return;
    }
    const auto text = leaf.text();
    content.text += (content.text.empty() ? "" : "\n") + text;
    if (!leaf.isAlternative && !content.html.empty())
        content.html += "<pre>" + escapeHTML(text) + "</pre>";
}

std::string dataURL(const MIMELeaf &leaf, const std::string &bytes) {
    const std::unique_ptr<gchar, decltype(&g_free)> encoded(
        g_base64_encode(reinterpret_cast<const guchar *>(bytes.data()), bytes.size()), g_free);
    return "data:" + leaf.contentType() + ";base64," + encoded.get();
}

/// References may be percent-encoded, the Content-ID never is. Looks no further than the longest form of `id`.
bool refersTo(const std::string &html, std::size_t position, const std::string &id, std::size_t &length) {
    auto reference = html.substr(position, id.size() * 3 + 1);
    reference = reference.substr(0, reference.find_first_of("\"'()<> \t\r\n"));
    length = reference.size();
    const std::unique_ptr<gchar, decltype(&g_free)> decoded(g_uri_unescape_string(reference.c_str(), nullptr), g_free);
    return reference == id || (decoded && id == decoded.get());
}

bool replaceReferences(std::string &html, const std::string &id, const std::string &url) {
    bool replaced = false;
    for (auto position = html.find("cid:"); position != std::string::npos;) {
        std::size_t length = 0;
        if (refersTo(html, position + 4, id, length)) {
            html.replace(position, length + 4, url);
            position += url.size();
            replaced = true;
        } else {
            position += 4;
        }
        position = html.find("cid:", position);
    }
    return replaced;
}

void addAttachment(const MIMELeaf &leaf, int part, MessageContent &content) {
    const auto bytes = leaf.content();
    MessageAttachment attachment{leaf.fileName(), leaf.contentType(), bytes.size(), leaf.number, part, {}};
    const auto id = leaf.contentID();
    const bool canInline = leaf.is("image") && !id.empty() && bytes.size() <= largestInlineImage;
    if (canInline && replaceReferences(content.html, id, dataURL(leaf, bytes)))
        attachment.contentID = id;
    content.attachments.push_back(std::move(attachment));
}

} // namespace

MessageContent readContent(const MIMEMessage &message) {
    MessageContent content;
    const auto leaves = leavesOf(message);
    for (const auto &leaf : leaves) {
        if (isBody(leaf))
            addBody(leaf, content);
    }
    for (std::size_t i = 0; i < leaves.size(); ++i) {
        if (!isBody(leaves[i]))
            addAttachment(leaves[i], static_cast<int>(i) + 1, content);
    }
    return content;
}

MessageOutline readOutline(const MIMEMessage &message) {
    MessageOutline outline;
    std::string html;
    for (const auto &leaf : leavesOf(message)) {
        if (!isBody(leaf))
            outline.hasAttachment |= leaf.contentID().empty() || !leaf.is("image");
        else if (leaf.is("text", "html"))
            html += leaf.text();
        else
            outline.text += leaf.text() + "\n";
    }
    const bool blank = outline.text.find_first_not_of(" \t\r\n") == std::string::npos;
    if (blank && !html.empty())
        outline.text = textOfHTML(html);
    return outline;
}

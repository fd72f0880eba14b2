#include "send/InlineImages.h"

#include "accounts/Secrets.h"

#include <glib.h>

#include <algorithm>
#include <memory>
#include <string_view>

namespace {

constexpr std::string_view mark = "data:image/";
constexpr std::string_view encodingMark = ";base64,";
constexpr std::size_t longestSubtype = 40;

bool isTypeCharacter(char c) {
    return g_ascii_isalnum(c) || c == '+' || c == '-' || c == '.';
}

bool isDataCharacter(char c) {
    return g_ascii_isalnum(c) || g_ascii_isspace(c) || c == '+' || c == '/' || c == '=' || c == '%';
}

std::string decoded(const std::string &base64) {
    const std::unique_ptr<gchar, decltype(&g_free)> plain(g_uri_unescape_string(base64.c_str(), nullptr), g_free);
    gsize size = 0;
    const std::unique_ptr<guchar, decltype(&g_free)> bytes(g_base64_decode(plain ? plain.get() : "", &size), g_free);
    return {reinterpret_cast<const char *>(bytes.get()), size};
}

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(), g_ascii_tolower);
    return lower;
}

bool canHoldImage(const std::string &attribute) {
    return attribute == "src" || attribute == "background" || attribute == "style";
}

class ImageLifter {
public:
    ImageLifter(std::string_view html, std::string domain)
        : m_html(html)
        , m_domain(std::move(domain)) {}

    LiftedImages lift() {
        while (m_position < m_html.size()) {
            copyUntil(m_html.find('<', m_position));
            const auto rest = m_html.substr(m_position);
            if (rest.starts_with("<!--"))
                copyBehind("-->");
            else if (rest.size() > 1 && g_ascii_isalpha(rest[1]))
                copyTag();
            else if (!rest.empty())
                copyUntil(m_position + 1);
        }
        return std::move(m_result);
    }

private:
    void copyUntil(std::size_t end) {
        end = std::min(end, m_html.size());
        m_result.html += m_html.substr(m_position, end - m_position);
        m_position = end;
    }

    void copyBehind(std::string_view end) {
        const auto found = m_html.find(end, m_position);
        copyUntil(found == std::string_view::npos ? found : found + end.size());
    }

    void copyTag() {
        copyUntil(m_html.find_first_of(" \t\r\n\f/>", m_position));
        while (m_position < m_html.size() && m_html[m_position] != '>') {
            copyUntil(m_html.find_first_not_of(" \t\r\n\f/", m_position));
            copyAttribute();
        }
    }

    void copyAttribute() {
        const auto start = m_position;
        copyUntil(m_html.find_first_of(" \t\r\n\f/>=", m_position));
        const auto name = lowered(m_html.substr(start, m_position - start));
        const auto next = std::min(m_html.find_first_not_of(" \t\r\n\f", m_position), m_html.size());
        if (next == m_html.size() || m_html[next] != '=')
            return;
        copyUntil(m_html.find_first_not_of(" \t\r\n\f", next + 1));
        const auto end = endOfValue();
        if (canHoldImage(name))
            copyLifting(end);
        copyUntil(end);
    }

    std::size_t endOfValue() const {
        if (m_position >= m_html.size())
            return m_position;
        const char quote = m_html[m_position];
        if (quote != '"' && quote != '\'')
            return std::min(m_html.find_first_of(" \t\r\n\f>", m_position), m_html.size());
        const auto end = m_html.find(quote, m_position + 1);
        return end == std::string_view::npos ? m_html.size() : end + 1;
    }

    void copyLifting(std::size_t end) {
        const auto value = m_html.substr(0, end);
        for (auto found = value.find(mark, m_position); found < end; found = value.find(mark, m_position)) {
            copyUntil(found);
            if (!liftOne(end))
                copyUntil(found + mark.size());
        }
    }

    /// The image at the position, which ends before `limit`; false when it is none.
    bool liftOne(std::size_t limit) {
        const auto type = std::find_if_not(at(m_position + mark.size()), at(limit), isTypeCharacter);
        const auto typeEnd = static_cast<std::size_t>(type - m_html.begin());
        const auto data = typeEnd + encodingMark.size();
        const bool isEncoded = m_html.substr(typeEnd, encodingMark.size()) == encodingMark && data < limit;
        if (!isEncoded || typeEnd - m_position > mark.size() + longestSubtype)
            return false;
        const auto last = std::find_if_not(at(data), at(limit), isDataCharacter);
        const auto bytes = decoded(std::string(at(data), last));
        if (bytes.empty())
            return false;
        m_result.html += "cid:" + contentID(lowered(m_html.substr(m_position + 5, typeEnd - m_position - 5)), bytes);
        m_position = static_cast<std::size_t>(last - m_html.begin());
        return true;
    }

    std::string contentID(const std::string &type, const std::string &bytes) {
        for (const auto &image : m_result.images) {
            if (image.contentType == type && image.bytes == bytes)
                return image.contentID;
        }
        m_result.images.push_back({randomHex(12) + "@" + m_domain, type, bytes});
        return m_result.images.back().contentID;
    }

    std::string_view::const_iterator at(std::size_t position) const {
        return m_html.begin() + static_cast<std::ptrdiff_t>(std::min(position, m_html.size()));
    }

    std::string_view m_html;
    std::string m_domain;
    std::size_t m_position = 0;
    LiftedImages m_result;
};

} // namespace

LiftedImages liftImages(const std::string &html, const std::string &domain) {
    return ImageLifter(html, domain).lift();
}

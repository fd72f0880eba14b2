#include "mime/HTMLText.h"

#include <glib.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <memory>
#include <string_view>
#include <utility>

namespace {

constexpr std::array<std::pair<std::string_view, std::string_view>, 29> namedEntities{{
    {"amp", "&"},   {"lt", "<"},     {"gt", ">"},     {"quot", "\""},  {"apos", "'"},  {"nbsp", " "},
    {"copy", "©"},  {"reg", "®"},    {"trade", "™"},  {"hellip", "…"}, {"mdash", "—"}, {"ndash", "–"},
    {"lsquo", "‘"}, {"rsquo", "’"},  {"ldquo", "“"},  {"rdquo", "”"},  {"laquo", "«"}, {"raquo", "»"},
    {"bull", "•"},  {"middot", "·"}, {"euro", "€"},   {"pound", "£"},  {"auml", "ä"},  {"ouml", "ö"},
    {"uuml", "ü"},  {"szlig", "ß"},  {"eacute", "é"}, {"zwnj", ""},    {"shy", ""},
}};

constexpr std::size_t longestEntity = 14;

std::string characterOf(std::string_view digits, int base) {
    unsigned code = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), code, base);
    if (error != std::errc() || stop != digits.data() + digits.size() || code == 0 || !g_unichar_validate(code))
        return "\xEF\xBF\xBD";
    gchar bytes[6];
    return {bytes, static_cast<std::size_t>(g_unichar_to_utf8(code, bytes))};
}

/// The text of an entity's name; false for a name that is none.
bool decodeEntity(std::string_view name, std::string &text) {
    if (name.starts_with("#x") || name.starts_with("#X")) {
        text = characterOf(name.substr(2), 16);
        return true;
    }
    if (name.starts_with('#')) {
        text = characterOf(name.substr(1), 10);
        return true;
    }
    for (const auto &[known, character] : namedEntities) {
        if (known == name) {
            text = character;
            return true;
        }
    }
    return false;
}

std::string tagName(std::string_view tag) {
    std::string name;
    for (const char c : tag) {
        if (!g_ascii_isalnum(c) && !(name.empty() && c == '/'))
            break;
        name += g_ascii_tolower(c);
    }
    return name;
}

bool breaksLine(const std::string &tag) {
    static constexpr std::string_view blocks[] = {"br",  "p",     "/p",  "div", "/div",       "tr",         "/tr",
                                                  "li",  "table", "h1",  "h2",  "h3",         "h4",         "/h1",
                                                  "/h2", "/h3",   "/h4", "hr",  "blockquote", "/blockquote"};
    return std::find(std::begin(blocks), std::end(blocks), tag) != std::end(blocks);
}

bool hidesContent(const std::string &tag) {
    return tag == "style" || tag == "script" || tag == "head" || tag == "title" || tag == "noscript";
}

std::size_t findIgnoringCase(std::string_view text, std::string_view wanted, std::size_t from) {
    for (std::size_t i = from; i + wanted.size() <= text.size(); ++i) {
        if (g_ascii_strncasecmp(text.data() + i, wanted.data(), wanted.size()) == 0)
            return i;
    }
    return std::string_view::npos;
}

class HTMLReader {
public:
    explicit HTMLReader(std::string_view html)
        : m_html(html) {}

    std::string read() {
        while (m_position < m_html.size()) {
            const char c = m_html[m_position];
            if (c == '<')
                readTag();
            else if (c == '&')
                readEntity();
            else
                readCharacter(c);
        }
        while (!m_text.empty() && g_ascii_isspace(m_text.back()))
            m_text.pop_back();
        return std::move(m_text);
    }

private:
    void readTag() {
        if (m_html.substr(m_position, 4) == "<!--")
            return skipBehind("-->", m_position + 4);
        const auto name = tagName(m_html.substr(m_position + 1, 16));
        if (name.empty() && m_html.substr(m_position + 1, 1) != "!")
            return readCharacter('<');
        skipBehind(">", m_position);
        if (hidesContent(name))
            skipBehind(">", findIgnoringCase(m_html, "</" + name, m_position));
        else if (breaksLine(name))
            addBreak();
    }

    void readEntity() {
        const auto rest = m_html.substr(m_position + 1, longestEntity);
        const auto end = rest.find(';');
        std::string text;
        if (end == std::string_view::npos || !decodeEntity(rest.substr(0, end), text))
            return readCharacter('&');
        m_position += end + 2;
        text == " " ? addBlank() : void(m_text += text);
    }

    void readCharacter(char c) {
        ++m_position;
        g_ascii_isspace(c) ? addBlank() : m_text.push_back(c);
    }

    void skipBehind(std::string_view mark, std::size_t from) {
        const auto found = from == std::string_view::npos ? from : m_html.find(mark, from);
        m_position = found == std::string_view::npos ? m_html.size() : found + mark.size();
    }

    void addBlank() {
        if (!m_text.empty() && !g_ascii_isspace(m_text.back()))
            m_text += ' ';
    }

    void addBreak() {
        while (m_text.ends_with(' '))
            m_text.pop_back();
        if (!m_text.empty() && !m_text.ends_with("\n\n"))
            m_text += '\n';
    }

    std::string_view m_html;
    std::size_t m_position = 0;
    std::string m_text;
};

} // namespace

std::string textOfHTML(const std::string &html) {
    return HTMLReader(html).read();
}

std::string escapeHTML(const std::string &text) {
    const std::unique_ptr<gchar, decltype(&g_free)> escaped(
        g_markup_escape_text(text.data(), static_cast<gssize>(text.size())), g_free);
    return escaped.get();
}

#include "send/AddressList.h"

#include "http/APIError.h"
#include "mime/TextDecoding.h"

#include <glib.h>

#include <regex>

namespace {

// RFC 5321, 4.5.3.1
constexpr std::size_t longestLocalPart = 64;
constexpr std::size_t longestAddress = 254;

/// Walks over a recipient line and knows what is quoted.
class QuoteTracker {
public:
    /// Whether `c` stands outside of quotation marks.
    bool isOutside(char c) {
        const bool wasQuoted = m_quoted;
        if (m_escaped)
            m_escaped = false;
        else if (c == '\\')
            m_escaped = m_quoted;
        else if (c == '"')
            m_quoted = !m_quoted;
        return !wasQuoted;
    }

private:
    bool m_quoted = false;
    bool m_escaped = false;
};

std::vector<std::string> splitAddresses(const std::string &text) {
    std::vector<std::string> parts{""};
    QuoteTracker quotes;
    bool inBrackets = false;
    for (const char c : text) {
        const bool outside = quotes.isOutside(c);
        if (outside && (c == '<' || c == '>'))
            inBrackets = c == '<';
        if (outside && !inBrackets && (c == ',' || c == ';'))
            parts.emplace_back();
        else
            parts.back() += c;
    }
    return parts;
}

std::string unquoted(const std::string &name) {
    std::string text;
    for (std::size_t i = 0; i < name.size(); ++i) {
        if (name[i] == '\\' && i + 1 < name.size())
            text += name[++i];
        else if (name[i] != '"')
            text += name[i];
    }
    return singleLine(text);
}

std::size_t openingBracket(const std::string &text) {
    QuoteTracker quotes;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (quotes.isOutside(text[i]) && text[i] == '<')
            return i;
    }
    return std::string::npos;
}

std::string asciiDomain(const std::string &domain) {
    const std::unique_ptr<gchar, decltype(&g_free)> ascii(g_hostname_to_ascii(domain.c_str()), g_free);
    return ascii ? ascii.get() : "";
}

bool isAddress(const std::string &localPart, const std::string &domain) {
    static const std::regex atoms(R"([A-Za-z0-9!#$%&'*+/=?^_`{|}~-]+(\.[A-Za-z0-9!#$%&'*+/=?^_`{|}~-]+)*)");
    static const std::regex quoted(R"("([ !#-\[\]-~]|\\[ -~])*")");
    static const std::regex host(
        R"([A-Za-z0-9]([A-Za-z0-9-]*[A-Za-z0-9])?(\.[A-Za-z0-9]([A-Za-z0-9-]*[A-Za-z0-9])?)*)");
    if (localPart.size() > longestLocalPart || localPart.size() + 1 + domain.size() > longestAddress)
        return false;
    return (std::regex_match(localPart, atoms) || std::regex_match(localPart, quoted)) &&
           std::regex_match(domain, host);
}

MessageAddress parseAddress(const std::string &text) {
    const auto bracket = openingBracket(text);
    if (bracket == std::string::npos)
        return {"", parseMailAddress(text)};
    if (!text.ends_with('>'))
        throw APIError(400, "\"" + text + "\" is not a mail address");
    return {unquoted(text.substr(0, bracket)), parseMailAddress(text.substr(bracket + 1, text.size() - bracket - 2))};
}

} // namespace

std::string parseMailAddress(const std::string &text) {
    const auto address = singleLine(text);
    const auto sign = address.rfind('@');
    if (address.size() <= longestAddress && sign != std::string::npos) {
        const auto domain = asciiDomain(address.substr(sign + 1));
        if (isAddress(address.substr(0, sign), domain))
            return address.substr(0, sign + 1) + domain;
    }
    throw APIError(400, "\"" + firstCharacters(address, longestAddress) + "\" is not a mail address");
}

std::vector<MessageAddress> parseAddressList(const std::string &text) {
    std::vector<MessageAddress> addresses;
    for (const auto &part : splitAddresses(text)) {
        const auto line = singleLine(part);
        if (!line.empty())
            addresses.push_back(parseAddress(line));
    }
    return addresses;
}

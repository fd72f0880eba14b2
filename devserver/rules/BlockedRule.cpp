#include "rules/BlockedRule.h"

#include "mime/TextDecoding.h"

#include <algorithm>
#include <regex>
#include <vector>

namespace {

/// In linear steps for any sensible pattern: a mismatch goes back to the last "*" only.
bool matchesWildcards(const std::string &pattern, const std::string &text) {
    std::size_t p = 0, t = 0, retryText = 0;
    std::size_t star = std::string::npos;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            retryText = t;
        } else if (p < pattern.size() && pattern[p] == text[t]) {
            ++p;
            ++t;
        } else if (star != std::string::npos) {
            p = star + 1;
            t = ++retryText;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string::npos;
}

bool hasWildcard(const std::string &pattern) {
    return pattern.find('*') != std::string::npos;
}

bool matchesAnywhere(const std::string &pattern, const std::string &text) {
    return hasWildcard(pattern) ? matchesWildcards(pattern, text) : text.find(pattern) != std::string::npos;
}

bool matchesAddress(const std::string &pattern, const std::string &address) {
    if (hasWildcard(pattern))
        return matchesWildcards(pattern, address);
    const auto domain = pattern.substr(pattern.starts_with('@'));
    if (domain.find('@') != std::string::npos)
        return address == domain;
    return address.ends_with('@' + domain) || address.ends_with('.' + domain);
}

/// A name can look like an address: where there are angle brackets, only what they hold is one.
std::vector<std::string> addressesOf(const std::string &from) {
    static const std::regex bracketed("<([^<>]*)>"), bare(R"(([^\s<>,;"]+@[^\s<>,;"]+))");
    const auto &form = from.find('<') == std::string::npos ? bare : bracketed;
    std::vector<std::string> addresses;
    for (std::sregex_iterator match(from.begin(), from.end(), form), end; match != end; ++match)
        addresses.push_back((*match)[1]);
    return addresses;
}

std::string nameOf(const std::string &from) {
    auto name = from.substr(0, from.find('<'));
    std::erase(name, '"');
    return singleLine(name);
}

} // namespace

bool matches(const BlockedRule &rule, const std::string &from, const std::string &subject) {
    const auto pattern = foldCase(rule.pattern);
    if (rule.type == "name")
        return matchesAnywhere(pattern, nameOf(foldCase(from)));
    if (rule.type == "subject")
        return matchesAnywhere(pattern, foldCase(subject));
    const auto addresses = addressesOf(foldCase(from));
    return std::any_of(addresses.begin(), addresses.end(),
                       [&](const std::string &address) { return matchesAddress(pattern, address); });
}

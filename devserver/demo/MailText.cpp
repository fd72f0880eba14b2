#include "demo/MailText.h"

#include <algorithm>
#include <sstream>

namespace {
// A line shorter than this was broken by its writer, not wrapped by a program.
constexpr size_t wrappedLength = 52;

bool isWrapped(const std::vector<std::string> &lines, size_t i) {
    if (i + 1 >= lines.size() || lines[i].size() < wrappedLength || lines[i + 1].empty())
        return false;
    const bool startsItem = lines[i + 1].starts_with("- ") || lines[i + 1].starts_with(">");
    return !startsItem && !lines[i].starts_with(">");
}
} // namespace

std::vector<std::string> MailText::lines(std::string_view text) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> out;
    for (std::string line; std::getline(stream, line);)
        out.push_back(line);
    return out;
}

std::string MailText::escapedHTML(std::string_view text) {
    std::string out;
    for (const char c : text) {
        if (c == '<' || c == '>' || c == '&' || c == '"')
            out += c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '&' ? "&amp;" : "&quot;";
        else
            out += c;
    }
    return out;
}

std::string MailText::html(std::string_view text) {
    const std::vector<std::string> all = lines(text);
    std::string out;
    bool open = false;
    for (size_t i = 0; i < all.size(); ++i) {
        if (all[i].empty()) {
            out += open ? "</p>\n" : "";
            open = false;
            continue;
        }
        out += (open ? "" : "<p>") + escapedHTML(all[i]);
        open = true;
        if (i + 1 < all.size() && !all[i + 1].empty())
            out += isWrapped(all, i) ? " " : "<br>\n";
    }
    return out + (open ? "</p>\n" : "");
}

std::string MailText::quoted(std::string_view text) {
    std::string out;
    for (const std::string &line : lines(text))
        out += (line.empty() || line.starts_with(">") ? ">" : "> ") + line + "\n";
    return out;
}

std::string MailText::flowed(std::string_view text) {
    const std::vector<std::string> all = lines(text);
    std::string out;
    for (size_t i = 0; i < all.size(); ++i) {
        const bool stuffed = all[i].starts_with(" ") || all[i].starts_with("From ");
        out += (stuffed ? " " : "") + all[i] + (isWrapped(all, i) ? " \n" : "\n");
    }
    return out;
}

std::string MailText::replaced(std::string text, std::string_view what, std::string_view with) {
    for (size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

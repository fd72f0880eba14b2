#include "mailbox/FolderRoles.h"

#include "mime/TextDecoding.h"

#include <algorithm>
#include <set>

namespace {

const std::vector<std::pair<std::string, std::string>> commonNames{
    {"sent", "sent"},          {"sent items", "sent"},     {"sent mail", "sent"},
    {"sent messages", "sent"}, {"drafts", "drafts"},       {"draft", "drafts"},
    {"trash", "trash"},        {"deleted items", "trash"}, {"deleted messages", "trash"},
    {"bin", "trash"},          {"junk", "spam"},           {"spam", "spam"},
    {"junk e-mail", "spam"},   {"archive", "archive"},     {"archives", "archive"},
    {"all mail", "archive"},
};

} // namespace

std::map<std::string, std::string> folderRoles(const std::vector<std::string> &paths,
                                               const std::map<std::string, std::string> &wanted) {
    std::map<std::string, std::string> roles;
    std::set<std::string> taken{"inbox"};
    for (const auto &path : paths)
        roles[path] = path == "INBOX" ? "inbox" : "folder";
    const auto give = [&](const std::string &path, const std::string &role) {
        const auto found = roles.find(path);
        if (found != roles.end() && found->second == "folder" && taken.insert(role).second)
            found->second = role;
    };
    for (const auto &[role, path] : wanted)
        give(path, role);
    for (const auto &[name, role] : commonNames) {
        for (const auto &path : paths) {
            if (foldCase(path) == name)
                give(path, role);
        }
    }
    return roles;
}

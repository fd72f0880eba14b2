#pragma once

#include <map>
#include <string>
#include <vector>

/// Gives each path its role: "inbox", "sent", "drafts", "trash", "spam", "archive", or "folder". `wanted` maps roles to
/// paths and comes first; then common names count. No role is given twice.
std::map<std::string, std::string> folderRoles(const std::vector<std::string> &paths,
                                               const std::map<std::string, std::string> &wanted);

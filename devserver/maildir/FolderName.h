#pragma once

#include <string>

/// Folder paths as the client sees them, "INBOX" or "Work/Projects", and their directories in a Maildir++ tree: the
/// root itself, or ".Work.Projects" in modified UTF-7 (RFC 3501, 5.1.3).
std::string folderPathOfDirectory(const std::string &directoryName);

/// Fails with an APIError when the path cannot be a folder's.
std::string directoryOfNewFolder(const std::string &path);

std::string folderDisplayName(const std::string &path);

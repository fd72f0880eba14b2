#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <vector>

/// One message file of a folder.
struct MaildirEntry {
    /// "cur" or "new".
    std::string directory;
    std::string fileName;
};

/// A Maildir++ tree on disk. A message changes only by rename and unlink, so that a kill at any moment leaves each
/// message in exactly one place. Folders are found by listing, never by joining names that somebody sent.
class MaildirTree {
public:
    /// Fails when `root` is no Maildir.
    explicit MaildirTree(std::filesystem::path root);

    /// Makes the three directories of a Maildir.
    static void makeMaildir(const std::filesystem::path &folder);

    const std::filesystem::path &root() const { return m_root; }

    /// Path to directory; "INBOX" is the root.
    std::map<std::string, std::filesystem::path> folders() const;
    std::optional<std::filesystem::path> find(const std::string &path) const;

    void create(const std::string &path);
    /// Takes the folders below it along.
    void rename(const std::string &from, const std::string &to);
    /// Removes the folder with all of its mail, and the folders below it.
    void remove(const std::string &path);

    /// Base name to entry. A message that moves from new/ to cur/ meanwhile is seen in at least one of them.
    static std::map<std::string, MaildirEntry> scan(const std::filesystem::path &folder);

    /// Renames without ever replacing a file; false when `from` is gone or `to` is taken.
    static bool moveFile(const std::filesystem::path &from, const std::filesystem::path &to);

private:
    std::filesystem::path m_root;
};

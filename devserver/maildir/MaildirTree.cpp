#include "maildir/MaildirTree.h"

#include "http/APIError.h"
#include "maildir/FolderName.h"
#include "maildir/MaildirName.h"

#include <fcntl.h>

#include <cerrno>
#include <system_error>

namespace fs = std::filesystem;

namespace {

bool isMaildir(const fs::path &folder) {
    return fs::is_directory(folder / "cur") && fs::is_directory(folder / "new");
}

void addEntries(std::map<std::string, MaildirEntry> &entries, const fs::path &folder, const char *directory) {
    for (const auto &file : fs::directory_iterator(folder / directory)) {
        const auto name = file.path().filename().string();
        if (!name.starts_with('.'))
            entries.insert_or_assign(MaildirName(name).base, MaildirEntry{directory, name});
    }
}

} // namespace

MaildirTree::MaildirTree(fs::path root)
    : m_root(std::move(root)) {
    if (!isMaildir(m_root))
        throw std::runtime_error(m_root.string() + " is no Maildir: it lacks cur or new");
}

void MaildirTree::makeMaildir(const fs::path &folder) {
    for (const char *directory : {"tmp", "new", "cur"})
        fs::create_directories(folder / directory);
}

std::map<std::string, fs::path> MaildirTree::folders() const {
    std::map<std::string, fs::path> folders{{"INBOX", m_root}};
    for (const auto &entry : fs::directory_iterator(m_root)) {
        const auto name = entry.path().filename().string();
        if (!name.starts_with('.') || !isMaildir(entry.path()))
            continue;
        const auto path = folderPathOfDirectory(name);
        if (!path.empty())
            folders.emplace(path, entry.path());
    }
    return folders;
}

std::optional<fs::path> MaildirTree::find(const std::string &path) const {
    const auto all = folders();
    const auto found = all.find(path);
    return found == all.end() ? std::nullopt : std::optional(found->second);
}

void MaildirTree::create(const std::string &path) {
    const auto directory = m_root / directoryOfNewFolder(path);
    if (fs::exists(directory))
        throw APIError(409, "The folder \"" + path + "\" exists already");
    makeMaildir(directory);
}

void MaildirTree::rename(const std::string &from, const std::string &to) {
    const auto target = m_root / directoryOfNewFolder(to);
    if (fs::exists(target))
        throw APIError(409, "The folder \"" + to + "\" exists already");
    for (const auto &[path, directory] : folders()) {
        if (path == from)
            fs::rename(directory, target);
        else if (path.starts_with(from + "/"))
            fs::rename(directory, m_root / directoryOfNewFolder(to + path.substr(from.size())));
    }
}

void MaildirTree::remove(const std::string &path) {
    for (const auto &[name, directory] : folders()) {
        if (name == path || name.starts_with(path + "/"))
            fs::remove_all(directory);
    }
}

std::map<std::string, MaildirEntry> MaildirTree::scan(const fs::path &folder) {
    std::map<std::string, MaildirEntry> entries;
    addEntries(entries, folder, "new");
    addEntries(entries, folder, "cur");
    return entries;
}

bool MaildirTree::moveFile(const fs::path &from, const fs::path &to) {
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno == ENOENT || errno == EEXIST)
        return false;
    throw std::system_error(errno, std::generic_category(), "cannot move " + from.string());
}

#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <set>
#include <thread>

/// Watches the directories of a Maildir++ tree with inotify, on a thread of its own.
class MaildirWatcher {
public:
    /// Called on the watcher's thread with the folders in whose new/ or cur/ something happened, and whether folders
    /// came or went. One burst of changes is one call.
    using Callback = std::function<void(const std::set<std::filesystem::path> &folders, bool treeChanged)>;

    /// Watching has begun when the constructor returns.
    MaildirWatcher(std::filesystem::path root, Callback callback);
    ~MaildirWatcher();
    MaildirWatcher(const MaildirWatcher &) = delete;
    MaildirWatcher &operator=(const MaildirWatcher &) = delete;

private:
    void watchTree();
    void watchFolder(const std::filesystem::path &folder);
    void run();
    bool waitForEvents(int milliseconds) const;
    void readEvents(std::set<std::filesystem::path> &folders, bool &treeChanged);

    std::filesystem::path m_root;
    Callback m_callback;
    int m_inotify = -1;
    int m_stop = -1;
    /// Of the root and the folders themselves, where directories come and go.
    std::set<int> m_treeWatches;
    /// Of each new/ and cur/.
    std::map<int, std::filesystem::path> m_folderOfWatch;
    std::thread m_thread;
};

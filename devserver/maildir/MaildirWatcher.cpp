#include "maildir/MaildirWatcher.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <iostream>
#include <system_error>

namespace fs = std::filesystem;

namespace {

constexpr std::uint32_t messageEvents =
    IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_CLOSE_WRITE | IN_ONLYDIR;
constexpr std::uint32_t treeEvents = IN_CREATE | IN_MOVED_TO | IN_MOVED_FROM | IN_DELETE | IN_ONLYDIR;
constexpr int quietMilliseconds = 20;
constexpr int longestBurst = 10;

int checked(int descriptor, const char *what) {
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), what);
    return descriptor;
}

} // namespace

MaildirWatcher::MaildirWatcher(fs::path root, Callback callback)
    : m_root(std::move(root))
    , m_callback(std::move(callback))
    , m_inotify(checked(inotify_init1(IN_NONBLOCK | IN_CLOEXEC), "inotify"))
    , m_stop(checked(eventfd(0, EFD_CLOEXEC), "eventfd")) {
    watchTree();
    m_thread = std::thread([this] { run(); });
}

MaildirWatcher::~MaildirWatcher() {
    eventfd_write(m_stop, 1);
    m_thread.join();
    close(m_inotify);
    close(m_stop);
}

void MaildirWatcher::watchTree() {
    watchFolder(m_root);
    for (const auto &entry : fs::directory_iterator(m_root)) {
        if (entry.path().filename().string().starts_with('.') && entry.is_directory())
            watchFolder(entry.path());
    }
}

void MaildirWatcher::watchFolder(const fs::path &folder) {
    const int tree = inotify_add_watch(m_inotify, folder.c_str(), treeEvents);
    if (tree >= 0)
        m_treeWatches.insert(tree);
    for (const char *directory : {"new", "cur"}) {
        const int watch = inotify_add_watch(m_inotify, (folder / directory).c_str(), messageEvents);
        if (watch >= 0)
            m_folderOfWatch[watch] = folder;
    }
}

void MaildirWatcher::run() {
    while (waitForEvents(-1)) {
        std::set<fs::path> folders;
        bool treeChanged = false;
        readEvents(folders, treeChanged);
        for (int i = 0; i < longestBurst && waitForEvents(quietMilliseconds); ++i)
            readEvents(folders, treeChanged);
        try {
            if (treeChanged)
                watchTree();
            m_callback(folders, treeChanged);
        } catch (const std::exception &error) {
            std::cerr << m_root.string() << ": " << error.what() << std::endl;
        }
    }
}

/// False when the time ran out or the watcher is to stop.
bool MaildirWatcher::waitForEvents(int milliseconds) const {
    pollfd descriptors[] = {{m_inotify, POLLIN, 0}, {m_stop, POLLIN, 0}};
    const int ready = poll(descriptors, 2, milliseconds);
    const bool interrupted = ready < 0 && errno == EINTR;
    return interrupted || (ready > 0 && descriptors[1].revents == 0);
}

void MaildirWatcher::readEvents(std::set<fs::path> &folders, bool &treeChanged) {
    alignas(inotify_event) char buffer[64 * 1024];
    for (ssize_t size; (size = read(m_inotify, buffer, sizeof buffer)) > 0;) {
        for (ssize_t offset = 0; offset < size;) {
            const auto *event = reinterpret_cast<const inotify_event *>(buffer + offset);
            offset += static_cast<ssize_t>(sizeof *event + event->len);
            const auto found = m_folderOfWatch.find(event->wd);
            if (event->mask & IN_IGNORED) {
                m_folderOfWatch.erase(event->wd);
                m_treeWatches.erase(event->wd);
            } else if (found != m_folderOfWatch.end()) {
                folders.insert(found->second);
            } else {
                // A queue that overflowed has lost events of any folder.
                const bool isTree = m_treeWatches.contains(event->wd) && event->mask & IN_ISDIR;
                treeChanged |= isTree || event->mask & IN_Q_OVERFLOW;
            }
        }
    }
}

#include "maildir/MaildirDelivery.h"

#include "maildir/MaildirName.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>
#include <utility>

namespace fs = std::filesystem;

namespace {

[[noreturn]] void fail(const fs::path &file) {
    throw std::system_error(errno, std::generic_category(), "cannot write " + file.string());
}

class NewFile {
public:
    explicit NewFile(const fs::path &path)
        : m_path(path)
        , m_descriptor(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600)) {
        if (m_descriptor < 0)
            fail(m_path);
    }
    ~NewFile() { close(m_descriptor); }
    NewFile(const NewFile &) = delete;
    NewFile &operator=(const NewFile &) = delete;

    /// Returns when the bytes would outlive a power cut.
    void writeAll(std::string_view bytes) {
        while (!bytes.empty()) {
            const auto size = ::write(m_descriptor, bytes.data(), bytes.size());
            if (size < 0)
                fail(m_path);
            bytes.remove_prefix(static_cast<std::size_t>(size));
        }
        if (fsync(m_descriptor) != 0)
            fail(m_path);
    }

private:
    const fs::path &m_path;
    int m_descriptor;
};

} // namespace

MaildirDelivery::MaildirDelivery(fs::path folder, const std::string &bytes)
    : m_folder(std::move(folder))
    , m_base(uniqueMaildirBase()) {
    const auto path = temporaryFile();
    fs::create_directories(path.parent_path());
    try {
        NewFile(path).writeAll(bytes);
    } catch (const std::system_error &) {
        std::error_code ignored;
        fs::remove(path, ignored);
        throw;
    }
}

MaildirDelivery::MaildirDelivery(MaildirDelivery &&other) noexcept
    : m_folder(std::move(other.m_folder))
    , m_base(std::exchange(other.m_base, {})) {}

MaildirDelivery::~MaildirDelivery() {
    std::error_code ignored;
    if (!m_base.empty())
        fs::remove(temporaryFile(), ignored);
}

void MaildirDelivery::finish(const std::string &flags) {
    const auto target = flags.empty() ? m_folder / "new" / m_base : m_folder / "cur" / (m_base + ":2," + flags);
    if (!MaildirTree::moveFile(temporaryFile(), target))
        throw std::runtime_error("cannot deliver " + target.string());
    m_base.clear();
}

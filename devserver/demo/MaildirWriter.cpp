#include "demo/MaildirWriter.h"

#include <algorithm>
#include <fstream>

namespace {
std::string sortedFlags(std::string flags) {
    std::sort(flags.begin(), flags.end());
    return flags;
}

void writeFile(const std::filesystem::path &path, const std::string &bytes) {
    std::ofstream out;
    out.exceptions(std::ios::badbit | std::ios::failbit);
    out.open(path, std::ios::binary);
    out << bytes;
}
} // namespace

MaildirWriter::MaildirWriter(std::filesystem::path root)
    : m_root(std::move(root)) {}

void MaildirWriter::createFolder(const std::string &folder) const {
    for (const char *directory : {"cur", "new", "tmp"})
        std::filesystem::create_directories(m_root / folder / directory);
    if (!folder.empty())
        writeFile(m_root / folder / "maildirfolder", "");
}

void MaildirWriter::write(const DemoMessage &message) {
    const std::filesystem::path folder = m_root / message.folder;
    const std::string name = uniqueName(message);
    const std::filesystem::path path =
        message.flags.empty() ? folder / "new" / name : folder / "cur" / (name + ":2," + sortedFlags(message.flags));
    writeFile(path, message.bytes);
    std::filesystem::last_write_time(path, std::chrono::file_clock::from_sys(message.date));
}

std::string MaildirWriter::uniqueName(const DemoMessage &message) {
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(message.date.time_since_epoch()).count();
    return std::to_string(seconds) + ".M" + std::to_string(++m_written) +
           "P1.corvanite.example,S=" + std::to_string(message.bytes.size());
}

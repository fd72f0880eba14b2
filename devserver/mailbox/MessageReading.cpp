#include "mailbox/MessageReading.h"

#include "mime/MessageContent.h"
#include "mime/MessageHeaders.h"
#include "mime/TextDecoding.h"

#include <sys/stat.h>

#include <algorithm>
#include <fstream>
#include <sstream>

namespace {

/// Enough for headers, texts and the first files' headers of any usual message.
constexpr std::size_t summaryBytes = 512 * 1024;
constexpr std::size_t previewCharacters = 500;
constexpr std::size_t searchCharacters = 20000;

std::string readStart(std::ifstream &file, std::size_t size) {
    std::string bytes(size, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(size));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

} // namespace

std::optional<MessageSummary> readSummaryFile(const std::filesystem::path &folder, const MaildirEntry &entry) {
    const auto path = folder / entry.directory / entry.fileName;
    struct stat info {};
    std::ifstream file(path, std::ios::binary);
    if (!file || stat(path.c_str(), &info) != 0 || !S_ISREG(info.st_mode))
        return std::nullopt;
    const auto size = static_cast<std::size_t>(info.st_size);
    const auto message = parseMessage(readStart(file, std::min(size, summaryBytes)));
    const auto headers = readHeaders(message, static_cast<double>(info.st_mtime));
    const auto outline = readOutline(message);
    const auto searched = headers.subject + '\n' + headers.from + '\n' + headers.to + '\n' + headers.cc + '\n' +
                          firstCharacters(outline.text, searchCharacters);
    MessageSummary summary;
    summary.subject = headers.subject;
    summary.from = headers.from;
    summary.to = headers.to;
    summary.date = headers.date;
    summary.timestamp = headers.timestamp;
    summary.size = info.st_size;
    summary.hasAttachment = outline.hasAttachment;
    summary.messageID = headers.messageID;
    summary.inReplyTo = headers.inReplyTo;
    summary.preview = firstCharacters(singleLine(firstCharacters(outline.text, searchCharacters)), previewCharacters);
    summary.file = entry;
    summary.searchText = foldCase(searched);
    return summary;
}

std::optional<std::string> readWholeFile(const std::filesystem::path &path) {
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    std::ostringstream bytes;
    bytes << file.rdbuf();
    return std::move(bytes).str();
}

#include "api/ZIPArchive.h"

#include <archive.h>
#include <archive_entry.h>

#include <memory>
#include <set>
#include <stdexcept>

namespace {

la_ssize_t append(archive *, void *target, const void *bytes, std::size_t size) {
    static_cast<std::string *>(target)->append(static_cast<const char *>(bytes), size);
    return static_cast<la_ssize_t>(size);
}

std::string uniqueName(const std::string &wish, std::set<std::string> &taken) {
    auto name = wish.substr(wish.find_last_of("/\\") + 1);
    if (name.empty() || name == "." || name == "..")
        name = "attachment";
    const auto dot = name.rfind('.');
    const auto stem = name.substr(0, dot);
    const auto suffix = dot == std::string::npos ? "" : name.substr(dot);
    for (int number = 2; !taken.insert(name).second; ++number)
        name = stem + " " + std::to_string(number) + suffix;
    return name;
}

void addEntry(archive *writer, const std::string &name, const std::string &content) {
    const std::unique_ptr<archive_entry, decltype(&archive_entry_free)> entry(archive_entry_new(), archive_entry_free);
    archive_entry_set_pathname_utf8(entry.get(), name.c_str());
    archive_entry_set_size(entry.get(), static_cast<la_int64_t>(content.size()));
    archive_entry_set_filetype(entry.get(), AE_IFREG);
    archive_entry_set_perm(entry.get(), 0644);
    if (archive_write_header(writer, entry.get()) != ARCHIVE_OK ||
        archive_write_data(writer, content.data(), content.size()) < 0)
        throw std::runtime_error(archive_error_string(writer));
}

} // namespace

std::string zipArchive(const std::vector<ZIPEntry> &entries) {
    std::string bytes;
    const std::unique_ptr<archive, decltype(&archive_write_free)> writer(archive_write_new(), archive_write_free);
    archive_write_set_format_zip(writer.get());
    archive_write_set_options(writer.get(), "zip:hdrcharset=UTF-8");
    archive_write_set_bytes_in_last_block(writer.get(), 1);
    if (archive_write_open(writer.get(), &bytes, nullptr, append, nullptr) != ARCHIVE_OK)
        throw std::runtime_error(archive_error_string(writer.get()));
    std::set<std::string> taken;
    for (const auto &entry : entries)
        addEntry(writer.get(), uniqueName(entry.name, taken), entry.content);
    archive_write_close(writer.get());
    return bytes;
}

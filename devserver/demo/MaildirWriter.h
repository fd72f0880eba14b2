#pragma once

#include <filesystem>
#include <string>

#include "demo/Mailbag.h"

/// Writes messages into the folders of a Maildir++ tree.
class MaildirWriter {
public:
    explicit MaildirWriter(std::filesystem::path root);

    void createFolder(const std::string &folder) const;
    /// An unread message goes to "new", any other to "cur"; the file takes the message's date.
    void write(const DemoMessage &message);

private:
    std::string uniqueName(const DemoMessage &message);

    std::filesystem::path m_root;
    int m_written = 0;
};

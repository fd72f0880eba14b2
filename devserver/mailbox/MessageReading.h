#pragma once

#include "mailbox/MessageIndex.h"

/// Reads a message file's summary from its first part; nothing when the file is gone. Never fails on what a file holds.
std::optional<MessageSummary> readSummaryFile(const std::filesystem::path &folder, const MaildirEntry &entry);

/// The whole file; nothing when it is gone.
std::optional<std::string> readWholeFile(const std::filesystem::path &file);

#pragma once

#include "mailbox/Mailbox.h"

#include <nlohmann/json.hpp>

/// The mailbox's records in the client's words.
nlohmann::json summaryRecord(const MessageSummary &message);
nlohmann::json listRecord(const ListPage &page, const std::string &folder, const ListQuery &query);
nlohmann::json folderRecords(const std::vector<MailboxFolder> &folders);
nlohmann::json stateRecord(const FolderState &state, const std::string &accountID);

#pragma once

#include "mailbox/MessageIndex.h"

/// What has become different in one folder.
struct FolderChanges {
    std::string folder;
    /// Unread messages that lay in no other folder before.
    std::vector<std::int64_t> delivered;
    std::vector<std::int64_t> arrived;
    std::vector<std::int64_t> removed;
    std::vector<std::int64_t> seen;
    std::vector<std::int64_t> flagsChanged;
    /// Base names behind `delivered` and `removed`, to tell deliveries from moves.
    std::map<std::string, std::int64_t> deliveredBases;
    std::set<std::string> removedBases;

    bool empty() const;
};

/// Brings the index of one folder in line with its directory.
FolderChanges syncFolder(MessageIndex &index, const std::string &path, const std::filesystem::path &directory);

/// A delivery whose base name has just left another folder was a move.
void separateMovesFromDeliveries(std::vector<FolderChanges> &changes);

/// Notes how a message's flags went from `before` to `after`.
void noteFlagChange(FolderChanges &changes, std::int64_t uid, const std::string &before, const std::string &after);

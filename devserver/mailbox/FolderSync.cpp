#include "mailbox/FolderSync.h"

#include "mailbox/MessageReading.h"
#include "maildir/MaildirName.h"

#include <algorithm>
#include <charconv>

namespace {

using Entries = std::map<std::string, MaildirEntry>;
using Locations = std::map<std::string, MessageIndex::Location>;

/// Deliveries name their files by the second; uids are given in that order.
std::int64_t deliveryTime(const std::string &base) {
    std::int64_t seconds = 0;
    std::from_chars(base.data(), base.data() + base.size(), seconds);
    return seconds;
}

std::vector<const Entries::value_type *> unknownEntries(const Entries &entries, const Locations &known) {
    std::vector<const Entries::value_type *> unknown;
    for (const auto &entry : entries) {
        if (!known.contains(entry.first))
            unknown.push_back(&entry);
    }
    std::stable_sort(unknown.begin(), unknown.end(),
                     [](auto *a, auto *b) { return deliveryTime(a->first) < deliveryTime(b->first); });
    return unknown;
}

/// A rename while the directory is read can hide a message once. A second look keeps it from losing its uid.
Entries scanTwice(const std::filesystem::path &directory, const Locations &known) {
    auto entries = MaildirTree::scan(directory);
    const auto isMissing = [&](const auto &location) { return !entries.contains(location.first); };
    if (std::any_of(known.begin(), known.end(), isMissing))
        entries.merge(MaildirTree::scan(directory));
    return entries;
}

void addNew(MessageIndex &index, std::int64_t folder, const std::filesystem::path &directory, const Entries &entries,
            const Locations &known, FolderChanges &changes) {
    for (const auto *entry : unknownEntries(entries, known)) {
        const auto summary = readSummaryFile(directory, entry->second);
        if (!summary)
            continue;
        const auto uid = index.insert(folder, *summary);
        const MaildirName name(entry->second.fileName);
        if (name.has('S') || name.has('D') || name.has('T')) {
            changes.arrived.push_back(uid);
        } else {
            changes.delivered.push_back(uid);
            changes.deliveredBases.emplace(name.base, uid);
        }
    }
}

void updateKnown(MessageIndex &index, std::int64_t folder, const Entries &entries, const Locations &known,
                 FolderChanges &changes) {
    for (const auto &[base, location] : known) {
        const auto entry = entries.find(base);
        if (entry == entries.end()) {
            index.erase(folder, location.uid);
            changes.removed.push_back(location.uid);
            changes.removedBases.insert(base);
            continue;
        }
        const auto &now = entry->second;
        if (now.fileName == location.file.fileName && now.directory == location.file.directory)
            continue;
        index.setFile(folder, location.uid, now);
        noteFlagChange(changes, location.uid, MaildirName(location.file.fileName).flags,
                       MaildirName(now.fileName).flags);
    }
}

} // namespace

bool FolderChanges::empty() const {
    return delivered.empty() && arrived.empty() && removed.empty() && seen.empty() && flagsChanged.empty();
}

FolderChanges syncFolder(MessageIndex &index, const std::string &path, const std::filesystem::path &directory) {
    FolderChanges changes;
    changes.folder = path;
    SQLiteTransaction transaction(index.database());
    const auto folder = index.folder(path).id;
    const auto known = index.locations(folder);
    const auto entries = scanTwice(directory, known);
    updateKnown(index, folder, entries, known, changes);
    addNew(index, folder, directory, entries, known, changes);
    if (!changes.empty())
        index.bumpVersion(folder);
    transaction.commit();
    return changes;
}

void separateMovesFromDeliveries(std::vector<FolderChanges> &changes) {
    std::set<std::string> removed;
    for (const auto &folder : changes)
        removed.insert(folder.removedBases.begin(), folder.removedBases.end());
    for (auto &folder : changes) {
        for (const auto &[base, uid] : folder.deliveredBases) {
            if (!removed.contains(base))
                continue;
            std::erase(folder.delivered, uid);
            folder.arrived.push_back(uid);
        }
    }
}

void noteFlagChange(FolderChanges &changes, std::int64_t uid, const std::string &before, const std::string &after) {
    const auto has = [](const std::string &flags, char flag) { return flags.find(flag) != std::string::npos; };
    if (before == after)
        return;
    const bool becameSeen = !has(before, 'S') && has(after, 'S');
    (becameSeen ? changes.seen : changes.flagsChanged).push_back(uid);
}

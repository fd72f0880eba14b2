#pragma once

#include <string>
#include <vector>

struct ZIPEntry {
    /// One file name; folders in it are dropped. An empty one becomes "attachment".
    std::string name;
    std::string content;
};

/// A ZIP file. Entries of the same name are numbered.
std::string zipArchive(const std::vector<ZIPEntry> &entries);

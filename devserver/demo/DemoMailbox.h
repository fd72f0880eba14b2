#pragma once

#include <chrono>
#include <filesystem>

/// Writes the mailbox of Dana Okafor <dana@corvanite.example> as a Maildir++ tree. The same `now` gives the same tree,
/// byte for byte, and no message is younger than `now`. Throws std::filesystem::filesystem_error or
/// std::ios_base::failure.
void generateDemoMailbox(const std::filesystem::path &maildir, std::chrono::system_clock::time_point now);

#pragma once

#include <chrono>
#include <filesystem>

/// Writes a Maildir whose inbox holds `messages` plausible messages of the last two years, the newest at `now`. The
/// same number gives the same mail.
void fillMaildir(const std::filesystem::path &folder, int messages, std::chrono::system_clock::time_point now);

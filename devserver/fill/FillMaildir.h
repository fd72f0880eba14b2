#pragma once

#include "ServerOptions.h"

/// Writes a Maildir whose inbox holds `wish.messages` plausible messages of the last two years, the newest at `now`.
/// The same number gives the same mail.
void fillMaildir(const FillOption &wish, std::chrono::system_clock::time_point now);

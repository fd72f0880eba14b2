#pragma once

#include <string>

/// A plain draft of a mail, put together from stock phrases for the words of `prompt`. It stands where a real server
/// asks a language model, so that writing can be tried from end to end. `existingHTML` is what the mail holds already.
std::string draftMail(const std::string &prompt, const std::string &existingHTML);

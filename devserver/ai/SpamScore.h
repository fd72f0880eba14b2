#pragma once

#include <string>

struct SpamCandidate {
    std::string subject;
    /// The `From` header as a list shows it, such as `Name <a@b>`.
    std::string from;
    /// May be empty.
    std::string body;
};

/// How much a message looks like spam, from 0 to 1. Each sign lets a part of the doubt pass that the others have left:
/// the score is 1 - (1 - w1)(1 - w2)...
double spamScore(const SpamCandidate &message);

#include "ai/SpamScore.h"

#include "mime/TextDecoding.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <regex>
#include <string_view>

namespace {

struct SpamWord {
    const char *words;
    double weight;
};

/// Phrases in small letters, searched for at the start of words.
constexpr std::array spamWords{
    SpamWord{"casino", 0.6},
    SpamWord{"free spins", 0.6},
    SpamWord{"lottery", 0.6},
    SpamWord{"лотере", 0.6},
    SpamWord{"выиграли", 0.6},
    SpamWord{"приз", 0.5},
    SpamWord{"you have won", 0.6},
    SpamWord{"jackpot", 0.5},
    SpamWord{"beneficiary", 0.6},
    SpamWord{"the estate of", 0.6},
    SpamWord{"confidential", 0.55},
    SpamWord{"inheritance", 0.5},
    SpamWord{"pills", 0.6},
    SpamWord{"viagra", 0.8},
    SpamWord{"replica", 0.6},
    SpamWord{"luxury", 0.5},
    SpamWord{"% off", 0.3},
    SpamWord{"seo ", 0.5},
    SpamWord{"visited your website", 0.6},
    SpamWord{"page one guaranteed", 0.5},
    SpamWord{"wallet", 0.4},
    SpamWord{"doubles", 0.4},
    SpamWord{"last hours", 0.5},
    SpamWord{"vip@", 0.3},
    SpamWord{"lonely", 0.5},
    SpamWord{"near you", 0.4},
    SpamWord{"wants to talk", 0.4},
    SpamWord{"final notice", 0.6},
    SpamWord{"overdue", 0.4},
    SpamWord{"mailbox is", 0.4},
    SpamWord{"mailbox support", 0.5},
    SpamWord{"% full", 0.4},
    SpamWord{"quota", 0.3},
    SpamWord{"session expired", 0.5},
    SpamWord{"unusual sign-in", 0.5},
    SpamWord{"account security", 0.4},
    SpamWord{"-secure.", 0.5},
    SpamWord{"parcel held", 0.6},
    SpamWord{"customs", 0.4},
    SpamWord{"due", 0.2},
    SpamWord{"act now", 0.5},
    SpamWord{"click here", 0.4},
    SpamWord{"winner", 0.4},
    SpamWord{"bit.ly/", 0.4},
    SpamWord{"tinyurl.com/", 0.4},
};

bool isASCIILetter(char character) {
    return std::isalpha(static_cast<unsigned char>(character));
}

bool startsWord(const std::string &text, std::size_t position, const std::string_view words) {
    return position == 0 || !isASCIILetter(text[position - 1]) || !isASCIILetter(words.front());
}

bool holdsWords(const std::string &text, std::string_view words) {
    for (auto at = text.find(words); at != std::string::npos; at = text.find(words, at + 1)) {
        if (startsWord(text, at, words))
            return true;
    }
    return false;
}

/// Counts capital letters as a share of all letters in ASCII; short texts have no share to speak of.
bool shouts(const std::string &text) {
    const auto letters = std::count_if(text.begin(), text.end(), isASCIILetter);
    const auto capitals = std::count_if(text.begin(), text.end(), [](unsigned char c) { return std::isupper(c); });
    return letters >= 10 && capitals * 2 > letters;
}

/// Digits within words, as in "m0ney"; not those behind them, as in "Q3".
bool hidesLetters(const std::string &text) {
    static const std::regex disguised(R"([A-Za-z]\d[A-Za-z]{2})");
    return std::regex_search(text, disguised);
}

/// A sender who calls himself by somebody else's address.
bool borrowsAddress(const std::string &from) {
    static const std::regex name(R"re(^\s*"?[^<"\s]+@([^<"\s]+)"?\s*<[^<>@]*@([^<>]*)>)re");
    std::smatch parts;
    return std::regex_search(from, parts, name) && parts[1] != parts[2];
}

/// "No. 000000" is nobody's invoice.
bool hasEmptyNumber(const std::string &text) {
    return text.find("0000") != std::string::npos;
}

bool hasPictographs(const std::string &text) {
    return text.find("\xF0\x9F") != std::string::npos;
}

double wordDoubt(const std::string &text) {
    double doubt = 1;
    for (const auto &[words, weight] : spamWords) {
        if (holdsWords(text, words))
            doubt *= 1 - weight;
    }
    return doubt;
}

} // namespace

double spamScore(const SpamCandidate &message) {
    const auto heading = message.subject + '\n' + message.from;
    // What stands in the body weighs half: ordinary letters are long, and hold many words.
    double doubt = wordDoubt(foldCase(heading)) * std::sqrt(wordDoubt(foldCase(message.body)));
    const auto weigh = [&](bool sign, double weight) { doubt *= sign ? 1 - weight : 1; };
    weigh(borrowsAddress(message.from), 0.7);
    weigh(hidesLetters(message.subject), 0.6);
    weigh(shouts(message.subject) || shouts(message.from), 0.3);
    weigh(hasEmptyNumber(message.subject), 0.3);
    weigh(hasPictographs(message.subject), 0.1);
    return 1 - doubt;
}

#include "ai/MailDraft.h"

#include "mime/HTMLText.h"
#include "mime/TextDecoding.h"

#include <array>
#include <cctype>

namespace {

struct Phrase {
    /// In small letters.
    const char *word;
    const char *sentence;
};

constexpr std::array phrases{
    Phrase{"thank", "Thank you very much, it is much appreciated."},
    Phrase{"sorry", "Please accept my apologies."},
    Phrase{"apolog", "Please accept my apologies."},
    Phrase{"decline", "Unfortunately I have to decline this time."},
    Phrase{"accept", "I am glad to accept."},
    Phrase{"invit", "It would be a pleasure to see you there."},
    Phrase{"meet", "Would you have half an hour for a meeting this week?"},
    Phrase{"remind", "This is a friendly reminder, in case it went under."},
    Phrase{"report", "The report follows as soon as the last figures are in."},
};

bool isBlank(const std::string &text) {
    return text.find_first_not_of(" \t\r\n") == std::string::npos;
}

std::string phrasesFor(const std::string &prompt) {
    const auto wanted = foldCase(prompt);
    std::string sentences;
    for (const auto &[word, sentence] : phrases) {
        if (wanted.find(word) != std::string::npos && sentences.find(sentence) == std::string::npos)
            sentences += std::string(sentence) + "\n";
    }
    return sentences;
}

/// The prompt itself, where no phrase fits.
std::string asSentence(std::string prompt) {
    prompt.front() = char(std::toupper(static_cast<unsigned char>(prompt.front())));
    return prompt + (std::ispunct(static_cast<unsigned char>(prompt.back())) ? "\n" : ".\n");
}

} // namespace

std::string draftMail(const std::string &prompt, const std::string &existingHTML) {
    if (isBlank(prompt))
        return {};
    const std::string opening = isBlank(textOfHTML(existingHTML)) ? "" : "Thank you for your message.\n";
    const auto sentences = phrasesFor(prompt);
    return "Hello,\n\n" + opening + (sentences.empty() ? asSentence(prompt) : sentences) + "\nKind regards";
}

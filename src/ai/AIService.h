#pragma once

#include "ai/AIRecords.h"
#include "app/User.h"

#include <QCoroTask>

/// A message with this score or a higher one is spam to the screens that check for it.
inline constexpr double spamScoreThreshold = 0.8;

/// Whether the account has a model to ask.
bool isAIAvailable(const std::optional<User> &user);

/// Asks the server's model. Holds nothing; each operation fails as `APIClient` does, and with the server's words when
/// the answer reports an error.
class AIService {
public:
    /// The assistant's text, empty when the answer has none.
    QCoro::Task<QString> chat(QString message, std::vector<AIChatMessage> history,
                              std::optional<QString> search = std::nullopt) const;
    /// The written text.
    QCoro::Task<QString> compose(QString prompt, std::optional<QString> existingContent) const;
    QCoro::Task<std::vector<AISpamScore>> spamCheck(std::vector<AISpamEmail> emails) const;
};

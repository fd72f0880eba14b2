#include "ai/AIService.h"

#include "net/APIClient.h"

using namespace Qt::StringLiterals;

namespace {

/// Posts to a model's endpoint. An error in the answer counts even when it is empty or stands beside a result.
template <typename Response, typename Request> QCoro::Task<Response> ask(QString path, Request request) {
    auto response = co_await APIClient::shared().post<Response>(std::move(path), std::move(request));
    if (response.error)
        throw APIError::serverError(*response.error);
    co_return response;
}

} // namespace

bool isAIAvailable(const std::optional<User> &user) {
    if (!user || !user->ai_provider || *user->ai_provider == "none"_L1)
        return false;
    return *user->ai_provider == "ollama"_L1 || user->has_ai_key.value_or(false);
}

QCoro::Task<QString> AIService::chat(QString message, std::vector<AIChatMessage> history,
                                     std::optional<QString> search) const {
    AIChatRequest request{std::move(message), std::nullopt, std::move(search)};
    if (!history.empty())
        request.history = std::move(history);
    const auto response = co_await ask<AIChatResponse>(u"api/ai/chat"_s, std::move(request));
    co_return response.reply.value_or(QString());
}

QCoro::Task<QString> AIService::compose(QString prompt, std::optional<QString> existingContent) const {
    AIComposeRequest request{std::move(prompt), existingContent.value_or(u""_s)};
    const auto response = co_await ask<AIComposeResponse>(u"api/ai/compose"_s, std::move(request));
    co_return response.content.value_or(QString());
}

QCoro::Task<std::vector<AISpamScore>> AIService::spamCheck(std::vector<AISpamEmail> emails) const {
    AISpamCheckRequest request{std::move(emails)};
    auto response = co_await ask<AISpamCheckResponse>(u"api/ai/spam-check"_s, std::move(request));
    co_return response.scores.value_or(std::vector<AISpamScore>());
}

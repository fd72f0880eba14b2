#include "ai/MailDraft.h"
#include "ai/SpamScore.h"
#include "api/APIRoutes.h"

namespace {

/// AI endpoints tell their failures with a status of success.
APIResponse failure(const std::string &text) {
    return APIResponse::json({{"error", text}});
}

bool hasAI(const Account &account) {
    return accountRecord(account)["has_ai_key"] == true;
}

std::string textOf(const nlohmann::json &email, const char *key) {
    const auto found = email.find(key);
    return found != email.end() && found->is_string() ? found->get<std::string>() : std::string();
}

APIResponse checkSpam(const APIRequest &request) {
    if (!hasAI(request.account()))
        return failure("No AI provider is configured for this account.");
    const auto emails = request.body.find("emails");
    if (emails == request.body.end() || !emails->is_array())
        throw APIError(400, "emails must be a list");
    auto scores = nlohmann::json::array();
    for (const auto &email : *emails) {
        const double score = spamScore({textOf(email, "subject"), textOf(email, "from"), textOf(email, "body")});
        scores.push_back({{"index", scores.size()}, {"spam_score", score}});
    }
    return APIResponse::json({{"scores", std::move(scores)}});
}

APIResponse writeMail(const APIRequest &request) {
    if (!hasAI(request.account()))
        return failure("No AI provider is configured for this account.");
    const auto draft = draftMail(textOf(request.body, "prompt"), textOf(request.body, "existing_content"));
    return draft.empty() ? failure("The prompt is empty.") : APIResponse::json({{"content", draft}});
}

APIResponse refuse(const APIRequest &) {
    return failure("This development server has no language model.");
}

} // namespace

void addAIRoutes(Router &router, ServerContext &) {
    router.add("POST", "api/ai/spam-check", [](const APIRequest &request) { return checkSpam(request); });
    router.add("POST", "api/ai/chat", refuse);
    router.add("POST", "api/ai/compose", [](const APIRequest &request) { return writeMail(request); });
}

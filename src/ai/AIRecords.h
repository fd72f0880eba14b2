#pragma once

#include "net/JSONRecord.h"

#include <map>

/// One turn of a conversation.
struct AIChatMessage {
    /// "user" or "assistant".
    QString role;
    /// As typed or as returned.
    QString content;

    bool operator==(const AIChatMessage &) const = default;
};
template <>
inline constexpr auto jsonFields<AIChatMessage> = jsonRecord(jsonField("role", &AIChatMessage::role),
                                                             jsonField("content", &AIChatMessage::content));

struct AIChatRequest {
    QString message;
    /// Absent rather than empty.
    std::optional<std::vector<AIChatMessage>> history;
    std::optional<QString> search;
};
template <>
inline constexpr auto jsonFields<AIChatRequest> = jsonRecord(jsonField("message", &AIChatRequest::message),
                                                             jsonField("history", &AIChatRequest::history),
                                                             jsonField("search", &AIChatRequest::search));

struct AIComposeRequest {
    QString prompt;
    /// Empty when there is none.
    QString existing_content;
};
template <>
inline constexpr auto jsonFields<AIComposeRequest> = jsonRecord(jsonField("prompt", &AIComposeRequest::prompt),
                                                                jsonField("existing_content",
                                                                          &AIComposeRequest::existing_content));

struct AIUsage {
    std::optional<qint64> input_tokens, output_tokens;

    bool operator==(const AIUsage &) const = default;
};
template <>
inline constexpr auto jsonFields<AIUsage> = jsonRecord(jsonField("input_tokens", &AIUsage::input_tokens),
                                                       jsonField("output_tokens", &AIUsage::output_tokens));

struct AIChatResponse {
    std::optional<QString> reply;
    /// A failure that came with a success status.
    std::optional<QString> error;
    std::optional<AIUsage> usage;
};
template <>
inline constexpr auto jsonFields<AIChatResponse> = jsonRecord(jsonField("reply", &AIChatResponse::reply),
                                                              jsonField("error", &AIChatResponse::error),
                                                              jsonField("usage", &AIChatResponse::usage));

struct AIComposeResponse {
    std::optional<QString> content, error;
    std::optional<AIUsage> usage;
};
template <>
inline constexpr auto jsonFields<AIComposeResponse> = jsonRecord(jsonField("content", &AIComposeResponse::content),
                                                                 jsonField("error", &AIComposeResponse::error),
                                                                 jsonField("usage", &AIComposeResponse::usage));

/// One message submitted for scoring.
struct AISpamEmail {
    QString subject;
    /// The sender as the list shows it.
    QString from;
    std::optional<QString> body;

    bool operator==(const AISpamEmail &) const = default;
};
template <>
inline constexpr auto jsonFields<AISpamEmail> = jsonRecord(jsonField("subject", &AISpamEmail::subject),
                                                           jsonField("from", &AISpamEmail::from),
                                                           jsonField("body", &AISpamEmail::body));

struct AISpamCheckRequest {
    std::vector<AISpamEmail> emails;
};
template <>
inline constexpr auto jsonFields<AISpamCheckRequest> = jsonRecord(jsonField("emails", &AISpamCheckRequest::emails));

/// One verdict.
struct AISpamScore {
    /// Position in the list that was sent, from 0.
    qint64 index = 0;
    /// From 0 to 1, higher is more likely spam.
    double spam_score = 0;

    bool operator==(const AISpamScore &) const = default;
};
template <>
inline constexpr auto jsonFields<AISpamScore> = jsonRecord(jsonField("index", &AISpamScore::index),
                                                           jsonField("spam_score", &AISpamScore::spam_score));

struct AISpamCheckResponse {
    /// Need not cover all messages.
    std::optional<std::vector<AISpamScore>> scores;
    std::optional<QString> error;
    std::optional<AIUsage> usage;
};
template <>
inline constexpr auto jsonFields<AISpamCheckResponse> = jsonRecord(jsonField("scores", &AISpamCheckResponse::scores),
                                                                   jsonField("error", &AISpamCheckResponse::error),
                                                                   jsonField("usage", &AISpamCheckResponse::usage));

/// What one operation or one provider has used.
struct AIUsageByOp {
    std::optional<qint64> input_tokens, output_tokens, requests;

    bool operator==(const AIUsageByOp &) const = default;
};
template <>
inline constexpr auto jsonFields<AIUsageByOp> = jsonRecord(jsonField("input_tokens", &AIUsageByOp::input_tokens),
                                                           jsonField("output_tokens", &AIUsageByOp::output_tokens),
                                                           jsonField("requests", &AIUsageByOp::requests));
using AIUsageByProvider = AIUsageByOp;

struct AIUsageDaily {
    std::optional<qint64> input, output, requests;

    bool operator==(const AIUsageDaily &) const = default;
};
template <>
inline constexpr auto jsonFields<AIUsageDaily> = jsonRecord(jsonField("input", &AIUsageDaily::input),
                                                            jsonField("output", &AIUsageDaily::output),
                                                            jsonField("requests", &AIUsageDaily::requests));

/// What the account has used in a period.
struct AIUsageResponse {
    std::optional<qint64> total_input, total_output, total_requests;
    std::optional<std::map<QString, AIUsageByOp>> by_operation;
    std::optional<std::map<QString, AIUsageByProvider>> by_provider;
    /// By day; the keys sort in the order of the days.
    std::optional<std::map<QString, AIUsageDaily>> daily;
};
template <>
inline constexpr auto jsonFields<AIUsageResponse> = jsonRecord(
    jsonField("total_input", &AIUsageResponse::total_input), jsonField("total_output", &AIUsageResponse::total_output),
    jsonField("total_requests", &AIUsageResponse::total_requests),
    jsonField("by_operation", &AIUsageResponse::by_operation), jsonField("by_provider", &AIUsageResponse::by_provider),
    jsonField("daily", &AIUsageResponse::daily));

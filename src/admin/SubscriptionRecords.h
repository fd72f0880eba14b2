#pragma once

#include "net/JSONRecord.h"

/// What the server tells of the shared ChatGPT account.
struct ChatGPTSubscriptionStatus {
    struct Pending {
        /// "waiting", "failed", "expired" or another word.
        QString status;
        /// End of the code's life, in milliseconds since 1970.
        std::optional<double> expiresAt;
        std::optional<QString> url, code;

        bool operator==(const Pending &) const = default;
    };

    std::optional<bool> connected;
    std::optional<QString> email, plan;
    std::optional<bool> busy;
    std::optional<Pending> pending;

    bool operator==(const ChatGPTSubscriptionStatus &) const = default;
};

template <>
inline constexpr auto jsonFields<ChatGPTSubscriptionStatus::Pending> =
    jsonRecord(jsonField("status", &ChatGPTSubscriptionStatus::Pending::status),
               jsonField("expiresAt", &ChatGPTSubscriptionStatus::Pending::expiresAt),
               jsonField("url", &ChatGPTSubscriptionStatus::Pending::url),
               jsonField("code", &ChatGPTSubscriptionStatus::Pending::code));

template <>
inline constexpr auto jsonFields<ChatGPTSubscriptionStatus> = jsonRecord(
    jsonField("connected", &ChatGPTSubscriptionStatus::connected),
    jsonField("email", &ChatGPTSubscriptionStatus::email), jsonField("plan", &ChatGPTSubscriptionStatus::plan),
    jsonField("busy", &ChatGPTSubscriptionStatus::busy), jsonField("pending", &ChatGPTSubscriptionStatus::pending));

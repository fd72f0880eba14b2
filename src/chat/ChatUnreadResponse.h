#pragma once

#include "net/JSONRecord.h"

struct ChatUnreadResponse {
    /// How many messages of each user are unread, by user id.
    std::map<QString, qint64> unread;
};

template <>
inline constexpr auto jsonFields<ChatUnreadResponse> = jsonRecord(jsonField("unread", &ChatUnreadResponse::unread));

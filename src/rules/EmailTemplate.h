#pragma once

#include "net/JSONRecord.h"

/// A named piece of mail to write from.
struct EmailTemplate {
    QString _id, name;
    std::optional<QString> subject;
    /// HTML or plain text.
    std::optional<QString> body;

    bool operator==(const EmailTemplate &) const = default;
};
template <>
inline constexpr auto jsonFields<EmailTemplate> = jsonRecord(jsonField("_id", &EmailTemplate::_id),
                                                             jsonField("name", &EmailTemplate::name),
                                                             jsonField("subject", &EmailTemplate::subject),
                                                             jsonField("body", &EmailTemplate::body));

struct TemplateListResponse {
    std::vector<EmailTemplate> templates;
};
template <>
inline constexpr auto jsonFields<TemplateListResponse> = jsonRecord(jsonField("templates",
                                                                              &TemplateListResponse::templates));

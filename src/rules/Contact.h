#pragma once

#include "net/JSONRecord.h"

/// A person whom the user writes to.
struct Contact {
    QString _id, email;
    std::optional<QString> name;
    /// How often the address was used.
    std::optional<qint64> frequency;
    std::optional<QString> source;

    bool operator==(const Contact &) const = default;
};
template <>
inline constexpr auto
    jsonFields<Contact> = jsonRecord(jsonField("_id", &Contact::_id), jsonField("email", &Contact::email),
                                     jsonField("name", &Contact::name), jsonField("frequency", &Contact::frequency),
                                     jsonField("source", &Contact::source));

struct ContactListResponse {
    std::vector<Contact> contacts;
};
template <>
inline constexpr auto jsonFields<ContactListResponse> = jsonRecord(jsonField("contacts",
                                                                             &ContactListResponse::contacts));

/// The contacts whose address or name holds `query`, in any letter case and in the order of the list. Every contact
/// holds the empty text.
std::vector<Contact> contactsMatching(const std::vector<Contact> &contacts, const QString &query);

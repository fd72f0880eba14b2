#include "rules/Contact.h"

#include <algorithm>

std::vector<Contact> contactsMatching(const std::vector<Contact> &contacts, const QString &query) {
    const auto wanted = query.toLower();
    std::vector<Contact> matches;
    std::ranges::copy_if(contacts, std::back_inserter(matches), [&](const Contact &contact) {
        return contact.email.toLower().contains(wanted) || contact.name.value_or(QString()).toLower().contains(wanted);
    });
    return matches;
}

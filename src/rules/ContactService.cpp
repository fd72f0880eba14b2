#include "rules/ContactService.h"

#include "net/APIClient.h"

using namespace Qt::StringLiterals;

QCoro::Task<std::vector<Contact>> ContactService::list() {
    auto response = co_await APIClient::shared().get<ContactListResponse>(u"api/contacts"_s);
    co_return std::move(response.contacts);
}

QCoro::Task<> ContactService::add(QString email, QString name) {
    return APIClient::shared().postJSON(u"api/contacts/add"_s, {{u"email"_s, email}, {u"name"_s, name}});
}

QCoro::Task<> ContactService::update(QString id, QString email, QString name) {
    return APIClient::shared().postJSON(u"api/contacts/update"_s,
                                        {{u"contact_id"_s, id}, {u"email"_s, email}, {u"name"_s, name}});
}

QCoro::Task<> ContactService::remove(QString id) {
    return APIClient::shared().delete_(u"api/contacts/"_s + id);
}

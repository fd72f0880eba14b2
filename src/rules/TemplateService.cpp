#include "rules/TemplateService.h"

#include "net/APIClient.h"

using namespace Qt::StringLiterals;

QCoro::Task<std::vector<EmailTemplate>> TemplateService::list() {
    auto response = co_await APIClient::shared().get<TemplateListResponse>(u"api/templates"_s);
    co_return std::move(response.templates);
}

QCoro::Task<> TemplateService::create(QString name, QString subject, QString body) {
    return APIClient::shared().postJSON(u"api/templates/create"_s,
                                        {{u"name"_s, name}, {u"subject"_s, subject}, {u"body"_s, body}});
}

QCoro::Task<> TemplateService::remove(QString id) {
    return APIClient::shared().postVoid(u"api/templates/delete/"_s + id);
}

#include "rules/BlockedService.h"

#include "net/APIClient.h"

using namespace Qt::StringLiterals;

QCoro::Task<> BlockedService::add(QString type, QString pattern) {
    return APIClient::shared().postJSON(u"api/blocked/add"_s, {{u"type"_s, type}, {u"pattern"_s, pattern}});
}

QCoro::Task<> BlockedService::remove(QString type, QString pattern) {
    return APIClient::shared().postJSON(u"api/blocked/delete"_s, {{u"type"_s, type}, {u"pattern"_s, pattern}});
}

#pragma once

#include "rules/EmailTemplate.h"

#include <QCoroTask>

/// The templates on the server. Holds nothing; each operation fails as `APIClient` does.
class TemplateService {
public:
    static QCoro::Task<std::vector<EmailTemplate>> list();
    static QCoro::Task<> create(QString name, QString subject, QString body);
    static QCoro::Task<> remove(QString id);
};

#pragma once

#include "rules/Contact.h"

#include <QCoroTask>

/// The address book on the server. Holds nothing; each operation fails as `APIClient` does.
class ContactService {
public:
    static QCoro::Task<std::vector<Contact>> list();
    static QCoro::Task<> add(QString email, QString name);
    static QCoro::Task<> update(QString id, QString email, QString name);
    static QCoro::Task<> remove(QString id);
};

#pragma once

#include <QCoroTask>
#include <QString>

/// The blocked rules on the server, which deletes matching mail outright. Holds nothing; fails as `APIClient` does.
class BlockedService {
public:
    /// `type` is "sender", "name" or "subject".
    static QCoro::Task<> add(QString type, QString pattern);
    static QCoro::Task<> remove(QString type, QString pattern);
};

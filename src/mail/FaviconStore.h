#pragma once

#include "platform/Clock.h"

#include <QCache>
#include <QCoroTask>
#include <QImage>
#include <QObject>
#include <map>
#include <memory>
#include <set>

class URLSession;

/// The pictures of senders' domains, fetched from the favicon service and kept in memory, shared by all screens. Main
/// thread only.
class FaviconStore : public QObject {
    Q_OBJECT
public:
    static FaviconStore &shared();
    ~FaviconStore() override;

    /// The domain's picture, null when it has none or is not known yet; an unknown one is fetched, once at a time, and
    /// after a broken connection not again for a minute.
    /// Safe to ask while painting.
    QImage icon(const QString &domain);

Q_SIGNALS:
    /// There is a picture now where there was none.
    void iconLoaded(const QString &domain);

private:
    FaviconStore();
    QCoro::Task<> fetch(QString domain);
    void keep(const QString &domain, const QImage &icon);

    std::unique_ptr<URLSession> m_session;
    /// A null picture marks a domain that is known to have none.
    QCache<QString, QImage> m_icons;
    std::set<QString> m_fetching;
    /// When to try again what could not be fetched.
    std::map<QString, Clock::Duration> m_retryAt;
};

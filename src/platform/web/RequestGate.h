#pragma once

#include "platform/desktop/WebView.h"

#include <QSet>
#include <QWebEngineUrlRequestInterceptor>

/// The one choke point: every request that a page causes passes here, and what is not named is denied.
class RequestGate final : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT

public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void reset(const QUrl &pageURL, RemoteContent content);
    void allowImage(const QUrl &url) { m_allowedImages.insert(url.adjusted(QUrl::RemoveFragment)); }
    void interceptRequest(QWebEngineUrlRequestInfo &info) override;

private:
    bool allows(const QWebEngineUrlRequestInfo &info) const;
    bool allowsRemote(const QWebEngineUrlRequestInfo &info) const;

    QUrl m_page;
    RemoteContent m_remoteContent = RemoteContent::Blocked;
    QSet<QUrl> m_allowedImages;
};

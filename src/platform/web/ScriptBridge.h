#pragma once

#include "platform/desktop/WebView.h"

#include <QObject>

class QWebEnginePage;

/// Gives the program's scripts `window.webkit.messageHandlers.NAME.postMessage(value)`, and passes what they post on.
class ScriptBridge final : public QObject {
    Q_OBJECT

public:
    ScriptBridge(const WebViewConfiguration &configuration, QWebEnginePage *page);
    quint32 world() const { return m_worldID; }

    /// What another page says from now on, as one that is about to be replaced, is dropped.
    void setCurrentPage(const QUrl &url) { m_currentPage = url; }
    Q_INVOKABLE void post(const QString &address, const QString &name, const QVariant &body);

Q_SIGNALS:
    void messageReceived(const QString &name, const QVariant &body);

private:
    const quint32 m_worldID;
    const QStringList m_handlers;
    QUrl m_currentPage;
};

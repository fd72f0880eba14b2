#pragma once

#include "platform/desktop/WebView.h"

#include <QObject>
#include <QQueue>

class QWebEnginePage;

/// Gives the program's scripts `window.webkit.messageHandlers.NAME.postMessage(value)`, and passes what they post on.
class ScriptBridge final : public QObject {
    Q_OBJECT

public:
    ScriptBridge(const WebViewConfiguration &configuration, QWebEnginePage *page);
    quint32 world() const { return m_worldID; }

    /// What another page says from now on, as one that is about to be replaced, is dropped.
    void setCurrentPage(const QUrl &url);
    Q_INVOKABLE void post(const QString &address, const QString &name, const QVariant &body);
    /// A long text waits in the page to be fetched.
    Q_INVOKABLE void announce(const QString &address, const QString &name);

Q_SIGNALS:
    void messageReceived(const QString &name, const QVariant &body);

private:
    struct Message {
        QString name;
        QVariant body;
        bool isHeld;
    };
    void add(const QString &address, const Message &message);
    void deliver();
    void fetchPiece();
    void receivePiece(const QVariant &piece);

    QWebEnginePage *const m_page;
    const quint32 m_worldID;
    const QStringList m_handlers;
    QUrl m_currentPage;
    QQueue<Message> m_messages;
    /// Of the first message, as far as it has been fetched.
    QString m_text;
    quint64 m_generation = 0;
};

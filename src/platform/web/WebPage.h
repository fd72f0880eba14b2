#pragma once

#include "platform/web/RequestGate.h"
#include "platform/web/ScriptBridge.h"
#include "platform/web/WebProfile.h"

#include <QWebEnginePage>

/// A page that loads what the program gives it and refuses to go anywhere else.
class WebPage final : public QWebEnginePage {
    Q_OBJECT

public:
    /// `webProfile` must outlive the page.
    WebPage(const WebViewConfiguration &configuration, WebProfile *webProfile);
    ~WebPage() override;

    void show(const QByteArray &html, RemoteContent remoteContent);
    RequestGate *requestGate() { return m_gate; }
    ScriptBridge *scriptBridge() { return m_bridge; }

Q_SIGNALS:
    void linkActivated(const QUrl &url);

protected:
    bool acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) override;
    QWebEnginePage *createWindow(WebWindowType type) override;
    QStringList chooseFiles(FileSelectionMode, const QStringList &, const QStringList &) override { return {}; }
    void javaScriptAlert(const QUrl &, const QString &) override {}
    bool javaScriptConfirm(const QUrl &, const QString &) override { return false; }
    bool javaScriptPrompt(const QUrl &, const QString &, const QString &, QString *) override { return false; }
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString &, int, const QString &) override {}

private:
    void denyRequests();
    void activateLink(const QUrl &url);
    /// A link that was pressed in the page before takes the place of this one's loading, and is refused.
    void loadAgain(bool succeeded);

    PageSchemeHandler *const m_pages;
    RequestGate *const m_gate;
    ScriptBridge *const m_bridge;
    QUrl m_page;
    bool m_isDisturbed = false;
};

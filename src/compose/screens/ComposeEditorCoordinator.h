#pragma once

#include "platform/Clock.h"
#include "platform/desktop/WebView.h"

#include <QObject>
#include <QQueue>

#include <functional>
#include <optional>

class EditorWebViewRef;

/// Brings HTML into the editor's page and reports what the page holds.
class ComposeEditorCoordinator final : public QObject, public WebViewDelegate {
    Q_OBJECT

public:
    ComposeEditorCoordinator(WebView *webView, std::shared_ptr<EditorWebViewRef> ref, QObject *parent);
    ~ComposeEditorCoordinator() override;

    void loadPage();
    void setInitialContent(const QString &html);
    void fetchContent(std::function<void(std::optional<QString>)> done);

Q_SIGNALS:
    void htmlContentChanged(const QString &html);
    /// A link was pressed with Ctrl held.
    void linkOpened(const QUrl &link);
    /// The page is there, with what it is to show first.
    void ready();

private:
    void webViewDidFinish() override;
    void webViewDidReceiveMessage(const QString &name, const QVariant &body) override;
    void webViewProcessDidTerminate() override;

    void applyInitialContent();
    void putContent(const QString &html);
    void receiveContent(const QString &html);
    void answerFetch(const QString &html);
    void giveUpFetches();

    WebView *m_webView;
    std::shared_ptr<EditorWebViewRef> m_ref;
    bool m_isWebViewReady = false;
    QString m_initialContent;
    std::optional<QString> m_lastAppliedContent;
    /// What the page held when it last spoke.
    std::optional<QString> m_lastContent;
    /// What was in the page when its process died.
    std::optional<QString> m_lostContent;
    int m_lastFetch = 0;
    QQueue<std::function<void(std::optional<QString>)>> m_fetches;
    ScheduledWorkPtr m_patience;
};

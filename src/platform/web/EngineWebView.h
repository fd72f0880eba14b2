#pragma once

#include "platform/web/WebPage.h"

#include <QWebEngineView>

/// A `WebView` over the web engine.
class EngineWebView final : public QWebEngineView, public WebView {
    Q_OBJECT

public:
    explicit EngineWebView(const WebViewConfiguration &configuration);
    ~EngineWebView() override;

    QWidget *widget() override { return this; }
    void setDelegate(WebViewDelegate *newDelegate) override { m_delegate = newDelegate; }
    void load(const QByteArray &html, RemoteContent remoteContent) override;
    void allowImage(const QUrl &url) override;
    void evaluateJavaScript(const QString &script, std::function<void(const QVariant &)> completion) override;
    void setBackgroundColor(const QColor &color) override;
    void setMagnification(qreal factor) override;
    void findText(const QString &text, bool backward, std::function<void(int)> completion) override;
    QString selectedText() const override;
    void copySelection() override;
    void selectAll() override;
    void perform(EditAction action) override;
    void pressMarkerKey() override;

protected:
    void contextMenuEvent(QContextMenuEvent *event) override;

private:
    void connectPage();
    void finish();
    void receive(const QString &name, const QVariant &body);

    const bool m_isEditable;
    const std::shared_ptr<WebProfile> m_profile;
    std::unique_ptr<WebPage> m_webPage;
    WebViewDelegate *m_delegate = nullptr;
};

#pragma once

#include "platform/desktop/WebView.h"

#include <QWidget>

#include <functional>

class QDropEvent;

/// Holds a web view and takes the files that are dropped on it; whatever else is dropped goes into the page.
class AttachmentReceivingWebView final : public QWidget {
    Q_OBJECT

public:
    explicit AttachmentReceivingWebView(std::unique_ptr<WebView> webView, QWidget *parent = nullptr);
    ~AttachmentReceivingWebView() override;

    WebView *webView() const { return m_webView.get(); }
    /// May be empty. Gets addresses of files, at least one.
    std::function<void(const QList<QUrl> &)> onAttachFiles;

    bool eventFilter(QObject *watched, QEvent *event) override;

Q_SIGNALS:
    /// Files are being held over it, or are so no longer.
    void filesHeld(bool areHeld);

private:
    /// Whether there were any.
    bool takeFiles(QDropEvent *event);

    std::unique_ptr<WebView> m_webView;
};

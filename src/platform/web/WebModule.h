#pragma once

#include "platform/desktop/WebView.h"

#include <QObject>

/// What is loaded when the program first needs a web view.
class WebModule final : public QObject, public WebViewFactory {
    Q_OBJECT
    Q_INTERFACES(WebViewFactory)
    Q_PLUGIN_METADATA(IID "com.corvanite.WebViewFactory/1")

public:
    WebModule();
    std::unique_ptr<WebView> makeWebView(const WebViewConfiguration &configuration) override;
};

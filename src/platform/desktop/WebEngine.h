#pragma once

#include "platform/desktop/WebView.h"

#include <QCoreApplication>

#include <optional>

/// The door to the web engine, which is heavy and therefore loaded when it is first asked for. Main thread only.
class WebEngine {
    Q_DECLARE_TR_FUNCTIONS(WebEngine)

public:
    static WebEngine &shared();

    /// Loads the engine if that has not been tried yet.
    bool isAvailable();
    /// Why there is no engine, for a person to read; empty when there is one.
    QString unavailableReason();

    /// Makes a spare view with a living process, so that the first message does not wait for one. For idle time.
    void warmUp(const WebViewConfiguration &configuration);
    /// Null when the engine is not available. The view is hidden, has no parent and no delegate.
    std::unique_ptr<WebView> takeView(const WebViewConfiguration &configuration);
    /// Gives a view back; it is wiped and handed out again to the next one who asks for the same configuration.
    void recycle(std::unique_ptr<WebView> view, const WebViewConfiguration &configuration);

private:
    WebEngine() = default;
    void load();
    void loadModule();
    void dropSpareAtExit();

    bool m_loaded = false;
    QString m_reason;
    WebViewFactory *m_factory = nullptr;
    std::unique_ptr<WebView> m_spare;
    WebViewConfiguration m_spareConfiguration;
};

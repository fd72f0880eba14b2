#pragma once

#include <QWebEngineView>

/// The web engine as a browser uses it, with scripts and without a gate: what it loads shows that a hostile mail would
/// work, were it not for the program.
class UnguardedEngine {
public:
    UnguardedEngine();

    /// Opens a page and does not wait for it.
    void open(const QUrl &url);
    void click(QPoint point);
    bool hasLoaded() const { return m_loaded; }

private:
    QWebEngineView m_view;
    bool m_loaded = false;
};

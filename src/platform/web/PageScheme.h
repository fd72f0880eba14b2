#pragma once

#include <QHash>
#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

/// The private scheme that pages of the program's own are served by. (Handing a page over as text makes a data URL of
/// it, which ends at 2 MB.)
void registerPageScheme();
bool isPageURL(const QUrl &url);

/// Serves each page that was put here under an address of its own, and nothing else.
class PageSchemeHandler final : public QWebEngineUrlSchemeHandler {
    Q_OBJECT

public:
    QUrl put(const QByteArray &html);
    void remove(const QUrl &url) { m_pages.remove(url); }
    void requestStarted(QWebEngineUrlRequestJob *job) override;

private:
    QHash<QUrl, QByteArray> m_pages;
    quint64 m_lastPage = 0;
};

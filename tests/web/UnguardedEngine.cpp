#include "web/UnguardedEngine.h"

#include <QTest>
#include <QWebEngineProfile>
#include <QWebEngineSettings>

// A profile that goes while one of its requests is under way can take the engine down, so it lives to the end.
UnguardedEngine::UnguardedEngine() {
    auto *page = new QWebEnginePage(new QWebEngineProfile(QCoreApplication::instance()), &m_view);
    page->settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, false);
    page->settings()->setAttribute(QWebEngineSettings::DnsPrefetchEnabled, true);
    page->settings()->setAttribute(QWebEngineSettings::HyperlinkAuditingEnabled, true);
    m_view.setPage(page);
    m_view.resize(800, 600);
    QObject::connect(page, &QWebEnginePage::loadStarted, &m_view, [this] { m_loaded = false; });
    QObject::connect(page, &QWebEnginePage::loadFinished, &m_view, [this] { m_loaded = true; });
    m_view.show();
}

void UnguardedEngine::open(const QUrl &url) {
    m_loaded = false;
    m_view.load(url);
}

void UnguardedEngine::click(QPoint point) {
    QTest::mouseClick(m_view.focusProxy(), Qt::LeftButton, {}, point);
}

#include "platform/web/WebProfile.h"

#include "platform/web/SpellChecking.h"

#include <QWebEngineCookieStore>
#include <QWebEngineDownloadRequest>
#include <QWebEngineSettings>

namespace {

constexpr QWebEngineSettings::WebAttribute switchedOff[] = {
    QWebEngineSettings::JavascriptEnabled,
    QWebEngineSettings::JavascriptCanOpenWindows,
    QWebEngineSettings::JavascriptCanAccessClipboard,
    QWebEngineSettings::JavascriptCanPaste,
    QWebEngineSettings::AllowWindowActivationFromJavaScript,
    QWebEngineSettings::LocalStorageEnabled,
    QWebEngineSettings::LocalContentCanAccessRemoteUrls,
    QWebEngineSettings::LocalContentCanAccessFileUrls,
    QWebEngineSettings::XSSAuditingEnabled,
    QWebEngineSettings::HyperlinkAuditingEnabled,
    QWebEngineSettings::DnsPrefetchEnabled,
    QWebEngineSettings::PluginsEnabled,
    QWebEngineSettings::PdfViewerEnabled,
    QWebEngineSettings::FullScreenSupportEnabled,
    QWebEngineSettings::ScreenCaptureEnabled,
    QWebEngineSettings::WebGLEnabled,
    QWebEngineSettings::Accelerated2dCanvasEnabled,
    QWebEngineSettings::AutoLoadIconsForPage,
    QWebEngineSettings::TouchIconsEnabled,
    QWebEngineSettings::AllowRunningInsecureContent,
    QWebEngineSettings::AllowGeolocationOnInsecureOrigins,
    QWebEngineSettings::NavigateOnDropEnabled,
    QWebEngineSettings::ErrorPageEnabled,
    QWebEngineSettings::FocusOnNavigationEnabled,
    QWebEngineSettings::SpatialNavigationEnabled,
    QWebEngineSettings::ShowScrollBars,
};

} // namespace

std::shared_ptr<WebProfile> WebProfile::shared() {
    static std::weak_ptr<WebProfile> current;
    auto profile = current.lock();
    if (!profile)
        current = profile = std::make_shared<WebProfile>();
    return profile;
}

WebProfile::WebProfile() {
    for (const auto attribute : switchedOff)
        settings()->setAttribute(attribute, false);
    settings()->setAttribute(QWebEngineSettings::PlaybackRequiresUserGesture, true);
    // Refused like every navigation, but only after a click on it has been reported as the link that it is.
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::AllowAllUnknownUrlSchemes);
    setHttpCacheType(MemoryHttpCache);
    setPersistentCookiesPolicy(NoPersistentCookies);
    checkSpelling(this);
    installUrlSchemeHandler("corvanite-page", &m_schemeHandler);
    cookieStore()->setCookieFilter([](const QWebEngineCookieStore::FilterRequest &) { return false; });
    connect(this, &QWebEngineProfile::downloadRequested, this,
            [](QWebEngineDownloadRequest *download) { download->cancel(); });
}

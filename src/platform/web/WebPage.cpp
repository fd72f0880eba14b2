#include "platform/web/WebPage.h"

#include <QWebEngineCertificateError>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;

WebPage::WebPage(const WebViewConfiguration &configuration, std::shared_ptr<WebProfile> sharedProfile)
    : QWebEnginePage(sharedProfile.get())
    , profile(std::move(sharedProfile))
    , bridge(new ScriptBridge(configuration, this)) {
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, configuration.allowsContentJavaScript);
    setUrlRequestInterceptor(&gate);
    denyRequests();
}

WebPage::~WebPage() {
    profile->pages()->remove(page);
}

void WebPage::denyRequests() {
    connect(this, &QWebEnginePage::featurePermissionRequested, this, [this](const QUrl &origin, Feature feature) {
        setFeaturePermission(origin, feature, PermissionDeniedByUser);
    });
    connect(this, &QWebEnginePage::certificateError, this,
            [](QWebEngineCertificateError error) { error.rejectCertificate(); });
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](QWebEngineNewWindowRequest &request) { activateLink(request.requestedUrl()); });
}

void WebPage::show(const QByteArray &html, RemoteContent remoteContent) {
    profile->pages()->remove(page);
    page = profile->pages()->put(html);
    gate.reset(page, remoteContent);
    bridge->setCurrentPage(page);
    load(page);
}

bool WebPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) {
    if (isMainFrame && type == NavigationTypeTyped)
        return url == page;
    if (type == NavigationTypeLinkClicked)
        activateLink(url);
    return false;
}

QWebEnginePage *WebPage::createWindow(WebWindowType) {
    return nullptr;
}

// A relative link has nothing to be relative to.
void WebPage::activateLink(const QUrl &url) {
    if (!isPageURL(url))
        Q_EMIT linkActivated(url);
}

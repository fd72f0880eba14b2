#include "platform/web/WebPage.h"

#include <QWebEngineCertificateError>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>

using namespace Qt::StringLiterals;

WebPage::WebPage(const WebViewConfiguration &configuration, WebProfile *webProfile)
    : QWebEnginePage(webProfile)
    , m_pages(webProfile->pages())
    , m_gate(new RequestGate(this))
    , m_bridge(new ScriptBridge(configuration, this)) {
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, configuration.allowsContentJavaScript);
    setUrlRequestInterceptor(m_gate);
    denyRequests();
    connect(this, &QWebEnginePage::loadFinished, this, &WebPage::loadAgain);
}

WebPage::~WebPage() {
    m_pages->remove(m_page);
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
    m_pages->remove(m_page);
    m_page = m_pages->put(html);
    m_gate->reset(m_page, remoteContent);
    m_bridge->setCurrentPage(m_page);
    m_isDisturbed = false;
    load(m_page);
}

void WebPage::loadAgain(bool succeeded) {
    if (!succeeded && std::exchange(m_isDisturbed, false))
        load(m_page);
}

bool WebPage::acceptNavigationRequest(const QUrl &url, NavigationType type, bool isMainFrame) {
    if (isMainFrame && type == NavigationTypeTyped)
        return url == m_page;
    // Only by a hand: a page that refreshes itself would load for ever.
    const bool isPressed = type == NavigationTypeLinkClicked || type == NavigationTypeFormSubmitted;
    m_isDisturbed |= isMainFrame && isPressed && isLoading();
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

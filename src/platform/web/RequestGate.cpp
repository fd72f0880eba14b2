#include "platform/web/RequestGate.h"

#include <QWebEngineUrlRequestInfo>

using namespace Qt::StringLiterals;

namespace {

bool isDrawing(QWebEngineUrlRequestInfo::ResourceType type) {
    switch (type) {
    case QWebEngineUrlRequestInfo::ResourceTypeImage:
    case QWebEngineUrlRequestInfo::ResourceTypeStylesheet:
    case QWebEngineUrlRequestInfo::ResourceTypeFontResource:
    case QWebEngineUrlRequestInfo::ResourceTypeMedia:
        return true;
    default:
        return false;
    }
}

bool isWeb(const QUrl &url) {
    return url.scheme() == "http"_L1 || url.scheme() == "https"_L1;
}

} // namespace

void RequestGate::reset(const QUrl &pageURL, RemoteContent content) {
    m_page = pageURL;
    m_remoteContent = content;
    m_allowedImages.clear();
}

void RequestGate::interceptRequest(QWebEngineUrlRequestInfo &info) {
    if (!allows(info))
        info.block(true);
}

bool RequestGate::allows(const QWebEngineUrlRequestInfo &info) const {
    if (info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame)
        return info.requestUrl() == m_page;
    if (!isDrawing(info.resourceType()) || info.requestMethod() != "GET"_ba)
        return false;
    return info.requestUrl().scheme() == "data"_L1 || allowsRemote(info);
}

bool RequestGate::allowsRemote(const QWebEngineUrlRequestInfo &info) const {
    if (!isWeb(info.requestUrl()))
        return false;
    const bool isImage = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeImage;
    return m_remoteContent == RemoteContent::Drawing ||
           (isImage && m_allowedImages.contains(info.requestUrl().adjusted(QUrl::RemoveFragment)));
}

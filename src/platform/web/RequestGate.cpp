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
    page = pageURL;
    remoteContent = content;
    allowedImages.clear();
}

void RequestGate::interceptRequest(QWebEngineUrlRequestInfo &info) {
    if (!allows(info))
        info.block(true);
}

bool RequestGate::allows(const QWebEngineUrlRequestInfo &info) const {
    if (info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeMainFrame)
        return info.requestUrl() == page;
    if (!isDrawing(info.resourceType()) || info.requestMethod() != "GET"_ba)
        return false;
    return info.requestUrl().scheme() == "data"_L1 || allowsRemote(info);
}

bool RequestGate::allowsRemote(const QWebEngineUrlRequestInfo &info) const {
    if (!isWeb(info.requestUrl()))
        return false;
    const bool isImage = info.resourceType() == QWebEngineUrlRequestInfo::ResourceTypeImage;
    return remoteContent == RemoteContent::Drawing || (isImage && allowedImages.contains(info.requestUrl()));
}

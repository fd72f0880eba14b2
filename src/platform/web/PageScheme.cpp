#include "platform/web/PageScheme.h"

#include <QBuffer>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

using namespace Qt::StringLiterals;

namespace {

constexpr auto schemeName = "corvanite-page"_L1;

}

void registerPageScheme() {
    QWebEngineUrlScheme scheme(QByteArray(schemeName.data(), schemeName.size()));
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

bool isPageURL(const QUrl &url) {
    return url.scheme() == schemeName;
}

QUrl PageSchemeHandler::put(const QByteArray &html) {
    const QUrl url(u"%1://page/%2"_s.arg(schemeName).arg(++m_lastPage));
    m_pages.insert(url, html);
    return url;
}

void PageSchemeHandler::requestStarted(QWebEngineUrlRequestJob *job) {
    const auto page = m_pages.constFind(job->requestUrl());
    if (page == m_pages.constEnd())
        return job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    auto *buffer = new QBuffer(job);
    buffer->setData(*page);
    buffer->open(QIODevice::ReadOnly);
    job->reply("text/html; charset=utf-8", buffer);
}

#include "platform/web/ScriptBridge.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

using namespace Qt::StringLiterals;

namespace {

// Speaks the web channel's own protocol, of which type 6 calls a method, so that the client library is not needed.
const QString handlersScript = uR"(
(names => {
    const post = (name, body) => qt.webChannelTransport.send(JSON.stringify(
        { type: 6, id: 0, object: 'bridge', method: 'post', args: [location.href, name, body] }));
    const handlers = {};
    for (const name of names)
        handlers[name] = { postMessage: body => post(name, body) };
    window.webkit = { messageHandlers: handlers };
})(%1);
)"_s;

// Closes what passes no request interceptor. A page can ask for its links' host names to be looked up although that is
// switched off, unless it was told no before; and a frame whose document is part of the page starts without a request.
const QString guardScript = uR"(
(() => {
    const refusal = document.createElement('meta');
    refusal.httpEquiv = 'x-dns-prefetch-control';
    refusal.content = 'off';
    const root = document.documentElement;
    const place = root ?? document.appendChild(document.createElement('html'));
    place.append(refusal);
    (root ? refusal : place).remove();
    const removeFrames = () => document.querySelectorAll('iframe, frame, object, embed, portal')
        .forEach(frame => frame.remove());
    new MutationObserver(removeFrames).observe(document, { childList: true, subtree: true });
})();)"_s;

QString asJSON(const QStringList &texts) {
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

void addScript(QWebEnginePage *page, const QString &source, quint32 world, QWebEngineScript::InjectionPoint point) {
    QWebEngineScript script;
    script.setSourceCode(source);
    script.setWorldId(world);
    script.setInjectionPoint(point);
    script.setRunsOnSubFrames(false);
    page->scripts().insert(script);
}

} // namespace

ScriptBridge::ScriptBridge(const WebViewConfiguration &configuration, QWebEnginePage *page)
    : QObject(page)
    , m_worldID(configuration.allowsContentJavaScript ? QWebEngineScript::MainWorld
                                                      : QWebEngineScript::ApplicationWorld)
    , m_handlers(configuration.messageHandlers) {
    auto *channel = new QWebChannel(this);
    channel->registerObject(u"bridge"_s, this);
    page->setWebChannel(channel, m_worldID);
    addScript(page, guardScript, m_worldID, QWebEngineScript::DocumentCreation);
    addScript(page, handlersScript.arg(asJSON(m_handlers)), m_worldID, QWebEngineScript::DocumentCreation);
    for (const auto &script : configuration.userScripts)
        addScript(page, script, m_worldID, QWebEngineScript::DocumentReady);
}

void ScriptBridge::post(const QString &address, const QString &name, const QVariant &body) {
    const bool isCurrent = QUrl(address).adjusted(QUrl::RemoveFragment) == m_currentPage;
    if (isCurrent && m_handlers.contains(name))
        Q_EMIT messageReceived(name, body);
}

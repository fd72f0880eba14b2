#include "platform/web/ScriptBridge.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QPointer>
#include <QWebChannel>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <QWebEngineScriptCollection>

using namespace Qt::StringLiterals;

namespace {

// Speaks the web channel's own protocol, of which type 6 calls a method, so that the client library is not needed.
// A long text stays in the page and is fetched piece by piece, since the channel parses what it gets on the main
// thread.
const QString handlersScript = uR"(
(names => {
    const longest = 65536, pieceLength = 262144;
    const held = [];
    const call = (method, ...args) => qt.webChannelTransport.send(JSON.stringify(
        { type: 6, id: 0, object: 'bridge', method, args: [location.href, ...args] }));
    const post = (name, body) => {
        if (typeof body !== 'string' || body.length <= longest) return call('post', name, body);
        held.push({ text: body, taken: 0 });
        call('announce', name);
    };
    const endOfPiece = (text, start) => {
        const end = start + pieceLength;
        const splitsPair = (text.charCodeAt(end - 1) & 0xfc00) === 0xd800;
        return splitsPair ? end + 1 : end;
    };
    const takePiece = () => {
        const message = held[0];
        if (message.taken >= message.text.length) return !!held.shift();
        const end = endOfPiece(message.text, message.taken);
        const piece = message.text.slice(message.taken, end);
        message.taken = end;
        return piece;
    };
    const handlers = {};
    for (const name of names)
        handlers[name] = { postMessage: body => post(name, body) };
    window.webkit = { messageHandlers: handlers, takePiece };
})(%1);
)"_s;

// Closes what passes no request interceptor. A page can ask for its links' host names to be looked up although that is
// switched off, unless it was told no before; and a frame whose document is part of the page starts without a request.
// Elements of the page can be named like members of the document and hide them.
const QString guardScript = uR"(
(() => {
    const refusal = document.createElement('meta');
    refusal.httpEquiv = 'x-dns-prefetch-control';
    refusal.content = 'off';
    const root = document.documentElement;
    const place = root ?? document.appendChild(document.createElement('html'));
    place.append(refusal);
    (root ? refusal : place).remove();
    const findAll = Document.prototype.querySelectorAll.bind(document);
    const removeFrames = () => findAll('iframe, frame, object, embed, portal').forEach(frame => frame.remove());
    new MutationObserver(removeFrames).observe(document, { childList: true, subtree: true });
})();)"_s;

QString asJSON(const QStringList &texts) {
    return QString::fromUtf8(QJsonDocument(QJsonArray::fromStringList(texts)).toJson(QJsonDocument::Compact));
}

/// Half a surrogate pair is shown as a replacement character, and cannot be sent as anything else.
QString wellFormed(const QString &text) {
    if (text.isValidUtf16())
        return text;
    const auto characters = text.toUcs4();
    return QString::fromUcs4(reinterpret_cast<const char32_t *>(characters.constData()), characters.size());
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
    , m_page(page)
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

void ScriptBridge::setCurrentPage(const QUrl &url) {
    m_currentPage = url;
    m_messages.clear();
    m_text.clear();
    ++m_generation;
}

void ScriptBridge::post(const QString &address, const QString &name, const QVariant &body) {
    const bool isText = body.typeId() == QMetaType::QString;
    add(address, {name, isText ? QVariant(wellFormed(body.toString())) : body, false});
}

void ScriptBridge::announce(const QString &address, const QString &name) {
    add(address, {name, QString(), true});
}

void ScriptBridge::add(const QString &address, const Message &message) {
    const bool isCurrent = QUrl(address).adjusted(QUrl::RemoveFragment) == m_currentPage;
    if (!isCurrent || !m_handlers.contains(message.name))
        return;
    m_messages.enqueue(message);
    if (m_messages.size() == 1)
        deliver();
}

// In the order in which they were posted: what follows a long text waits for it.
void ScriptBridge::deliver() {
    while (!m_messages.isEmpty() && !m_messages.head().isHeld) {
        const auto message = m_messages.dequeue();
        Q_EMIT messageReceived(message.name, message.body);
    }
    if (!m_messages.isEmpty())
        fetchPiece();
}

void ScriptBridge::fetchPiece() {
    const auto receive = [self = QPointer(this), generation = m_generation](const QVariant &piece) {
        if (self && self->m_generation == generation)
            self->receivePiece(piece);
    };
    m_page->runJavaScript(u"window.webkit.takePiece()"_s, m_worldID, receive);
}

void ScriptBridge::receivePiece(const QVariant &piece) {
    auto &message = m_messages.head();
    if (piece.typeId() == QMetaType::QString) {
        m_text += piece.toString();
        return fetchPiece();
    }
    // Any other answer than the end means that the page has gone, and half a text is none.
    if (piece.typeId() != QMetaType::Bool)
        return setCurrentPage(m_currentPage);
    message = {message.name, std::exchange(m_text, {}), false};
    deliver();
}

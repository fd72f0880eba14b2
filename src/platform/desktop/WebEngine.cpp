#include "platform/desktop/WebEngine.h"

#include "platform/desktop/WebEngineRequirements.h"

#include <QFileInfo>
#include <QOpenGLContext>
#include <QPluginLoader>
#include <QWidget>

#include <mutex>

using namespace Qt::StringLiterals;

// Qt's own web engine sets the shared context through this function when it is linked rather than loaded.
Q_GUI_EXPORT void qt_gl_set_global_share_context(QOpenGLContext *context);

namespace {

const QByteArray blankPage = "<!DOCTYPE html><html><body></body></html>"_ba;

QString modulePath() {
    const auto folder = QCoreApplication::applicationDirPath();
    for (const auto &place : {u"/../lib"_s, u"/../lib/corvanite"_s, u"/"_s}) {
        const QFileInfo module(folder + place + u"/libcorvanite_web.so"_s);
        if (module.exists())
            return module.canonicalFilePath();
    }
    return {};
}

// The engine refuses to live without a shared context, but draws in software and never uses it. One that is never
// created satisfies it, and spares the program the 37 MB and 40 ms of OpenGL that Qt::AA_ShareOpenGLContexts costs.
void providePlaceholderContext() {
    if (!QOpenGLContext::globalShareContext())
        qt_gl_set_global_share_context(new QOpenGLContext(QCoreApplication::instance()));
}

} // namespace

WebEngine &WebEngine::shared() {
    static WebEngine engine;
    return engine;
}

bool WebEngine::isAvailable() {
    load();
    return m_factory != nullptr;
}

QString WebEngine::unavailableReason() {
    load();
    return m_reason;
}

void WebEngine::load() {
    if (m_loaded)
        return;
    m_loaded = true;
    m_reason = unmetWebEngineRequirement();
    if (m_reason.isEmpty())
        loadModule();
}

void WebEngine::loadModule() {
    const auto path = modulePath();
    if (path.isEmpty()) {
        m_reason = tr("The web view module is not installed.");
        return;
    }
    providePlaceholderContext();
    QPluginLoader loader(path);
    m_factory = qobject_cast<WebViewFactory *>(loader.instance());
    if (!m_factory)
        m_reason = loader.errorString();
}

void WebEngine::warmUp(const WebViewConfiguration &configuration) {
    if (!m_spare && isAvailable())
        recycle(m_factory->makeWebView(configuration), configuration);
}

std::unique_ptr<WebView> WebEngine::takeView(const WebViewConfiguration &configuration) {
    if (!isAvailable())
        return nullptr;
    if (m_spare && m_spareConfiguration == configuration)
        return std::move(m_spare);
    return m_factory->makeWebView(configuration);
}

void WebEngine::recycle(std::unique_ptr<WebView> view, const WebViewConfiguration &configuration) {
    if (m_spare)
        return;
    view->setDelegate(nullptr);
    view->widget()->hide();
    view->widget()->setParent(nullptr);
    view->setMagnification(1);
    view->load(blankPage, RemoteContent::Blocked);
    m_spare = std::move(view);
    m_spareConfiguration = configuration;
    dropSpareAtExit();
}

// A page must go before the engine does, whose own routine was added by the first page and runs after this one.
void WebEngine::dropSpareAtExit() {
    static std::once_flag added;
    std::call_once(added, [] { qAddPostRoutine([] { shared().m_spare.reset(); }); });
}

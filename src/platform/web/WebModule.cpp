#include "platform/web/WebModule.h"

#include "platform/web/EngineWebView.h"
#include "platform/web/PageScheme.h"
#include "platform/web/SpellChecking.h"

#include <QLoggingCategory>
#include <QQuickWindow>

namespace {

// One renderer process for all pages, and a script engine without its optimising compilers: 20 MB less.
constexpr auto engineSwitches = "--renderer-process-limit=1 --js-flags=\"--lite-mode --no-expose-wasm\"";

void setDefault(const char *variable, const QByteArray &value) {
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, value);
}

} // namespace

WebModule::WebModule() {
    setDefault("QTWEBENGINE_CHROMIUM_FLAGS", engineSwitches);
    setDefault("QTWEBENGINE_DICTIONARIES_PATH", spellingFolder().toLocal8Bit());
    // The engine asks Qt for OpenGL even where it does not use it, which brings 35 MB of drivers into the program.
    setDefault("QT_XCB_GL_INTEGRATION", "none");
    // Drawing in software takes 50 MB less than through OpenGL, needs no other kind of top-level window (so that none
    // has to be made anew, with a flash, when it gets its first web view), and lets other widgets lie over the page.
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    QLoggingCategory::setFilterRules(QStringLiteral("qt.webenginecontext.info=false"));
    registerPageScheme();
}

std::unique_ptr<WebView> WebModule::makeWebView(const WebViewConfiguration &configuration) {
    return std::make_unique<EngineWebView>(configuration);
}

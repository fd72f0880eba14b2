#include "compose/screens/EditorWebViewRef.h"

#include "compose/EditorScript.h"

#include <QPointer>
#include <QWidget>

using namespace Qt::StringLiterals;

void EditorWebViewRef::run(const QString &script) {
    if (auto *view = webView.get())
        view->evaluateJavaScript(script);
}

void EditorWebViewRef::insertRemoteImage(const QString &address) {
    allow(QUrl(address));
    run(EditorScript::insertImage(address));
}

void EditorWebViewRef::allow(const QUrl &image) {
    m_images.append(image);
    if (auto *view = webView.get())
        view->allowImage(image);
}

void EditorWebViewRef::allowImagesAgain() {
    for (const auto &image : std::as_const(m_images))
        webView.get()->allowImage(image);
}

void EditorWebViewRef::focusEditor() {
    if (auto *view = webView.get())
        view->widget()->setFocus(Qt::OtherFocusReason);
}

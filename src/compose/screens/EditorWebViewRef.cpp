#include "compose/screens/EditorWebViewRef.h"

#include "compose/EditorScript.h"

#include <QPointer>
#include <QWidget>

using namespace Qt::StringLiterals;

void EditorWebViewRef::run(const QString &script) {
    if (auto *view = webView.get())
        view->evaluateJavaScript(script);
}

// The engine is asked how it writes the address, because only that is let through.
void EditorWebViewRef::insertRemoteImage(const QString &address) {
    auto *view = webView.get();
    if (!view)
        return;
    view->evaluateJavaScript(EditorScript::normalizedAddress(address), [self = QPointer(this), address](auto written) {
        if (!self)
            return;
        if (const QUrl image(written.toString()); image.isValid())
            self->allow(image);
        self->run(EditorScript::insertImage(address));
    });
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

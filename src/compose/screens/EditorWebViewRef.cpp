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
        self->allow(QUrl(written.toString()));
        self->run(EditorScript::insertImage(address));
    });
}

// A host that answers in the clear only in order to lead to its encrypted side is let do so; the gate stops every other
// redirection, since it cannot be told from a request of quoted mail.
void EditorWebViewRef::allow(const QUrl &image) {
    if (!image.isValid())
        return;
    auto encrypted = image;
    encrypted.setScheme(u"https"_s);
    m_images << image << encrypted;
    allowImagesAgain();
}

void EditorWebViewRef::allowImagesAgain() {
    if (!webView.get())
        return;
    for (const auto &image : std::as_const(m_images))
        webView.get()->allowImage(image);
}

void EditorWebViewRef::focusEditor() {
    if (auto *view = webView.get())
        view->widget()->setFocus(Qt::OtherFocusReason);
}

#include "driver/MessageWriter.h"

#include "app/screens/AppWindow.h"
#include "compose/screens/ComposeEditorView.h"

#include <QApplication>
#include <QDropEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

ComposeView *MessageWriter::view() const {
    for (auto *window : QApplication::topLevelWidgets())
        if (auto *shown = window->isVisible() ? window->findChild<ComposeView *>() : nullptr)
            return shown;
    return nullptr;
}

bool MessageWriter::open(const std::function<void()> &trigger) {
    trigger();
    if (!AppDriver::waitUntil([this] { return view() != nullptr; }))
        return false;
    std::optional<QString> shown;
    const auto isShown = [&] {
        view()->editor()->fetchContent([&](const std::optional<QString> &html) { shown = html; });
        AppDriver::settle();
        return shown.has_value() && shown == view()->state().editorHTML.get();
    };
    return AppDriver::waitUntil([this] { return view()->state().isFilled(); }) && AppDriver::waitUntil(isShown);
}

void MessageWriter::fill(const QString &field, const QString &text) {
    auto *line = m_app.find<QLineEdit>(field, view());
    line->setFocus();
    m_app.type(text);
}

bool MessageWriter::typeText(const QString &text) {
    view()->editor()->focusEditor();
    AppDriver::settle();
    m_app.type(text);
    return waitForHTML(asHTML(text));
}

void MessageWriter::pressButton(const QString &name) {
    auto *button = m_app.find(name, view());
    AppDriver::waitUntil([button] { return button->isEnabled(); });
    m_app.click(button);
}

bool MessageWriter::dropFiles(const QStringList &paths) {
    QMimeData files;
    QList<QUrl> urls;
    for (const auto &path : paths)
        urls.append(QUrl::fromLocalFile(path));
    files.setUrls(urls);
    const auto before = view()->state().viewModel->attachments->size();
    const QPoint place(40, 40);
    QDragEnterEvent enter(place, Qt::CopyAction, &files, Qt::LeftButton, {});
    QDropEvent drop(place, Qt::CopyAction, &files, Qt::LeftButton, {});
    QCoreApplication::sendEvent(view(), &enter);
    QCoreApplication::sendEvent(view(), &drop);
    return enter.isAccepted() && drop.isAccepted() && AppDriver::waitUntil([&] {
               return view()->state().viewModel->attachments->size() == before + std::size_t(paths.size());
           });
}

QString MessageWriter::asHTML(QString text) {
    return text.replace(u'&', u"&amp;"_s).replace(u'<', u"&lt;"_s).replace(u'>', u"&gt;"_s);
}

bool MessageWriter::waitForHTML(const QString &part) {
    return AppDriver::waitUntil([&] { return view()->state().viewModel->body->contains(part); });
}

bool MessageWriter::send() {
    pressButton(u"Send"_s);
    return AppDriver::waitUntil([this] { return view() == nullptr; });
}

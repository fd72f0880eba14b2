#include "web/EditorWindow.h"

#include "ui/Themes.h"
#include "ui/screens/AppStyle.h"

#include <QTest>
#include <QVBoxLayout>
#include <QWebEngineView>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

// Before the first widget is drawn, since it takes the place of another style.
std::shared_ptr<EditorWebViewRef> makeRef() {
    applyTheme(resolvedTheme(u"light", ColorScheme::light));
    return std::make_shared<EditorWebViewRef>();
}

} // namespace

EditorWindow::EditorWindow()
    : ref(makeRef())
    , toolbar(new ComposeEditorToolbar(ref))
    , editor(new ComposeEditorView(ref)) {
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(toolbar);
    layout->addWidget(editor, 1);
    QObject::connect(editor, &ComposeEditorView::htmlContentChanged, this,
                     [this](const QString &html) { reports.append(html); });
    QObject::connect(editor, &ComposeEditorView::attachFiles, this,
                     [this](const QList<QUrl> &files) { attached += files; });
    setGeometry(0, 0, 800, 600);
    show();
    EXPECT_TRUE(spinUntil([this] { return ref->webView.get() && evaluate(u"typeof execCmd"_s) == u"function"_s; }));
    activateWindow();
    editor->focusEditor();
    EXPECT_TRUE(spinUntil([this] { return evaluate(u"document.hasFocus()"_s).toBool(); }));
}

QVariant EditorWindow::evaluate(const QString &script) {
    std::optional<QVariant> result;
    ref->webView.get()->evaluateJavaScript(script, [&](const QVariant &value) { result = value; });
    EXPECT_TRUE(spinUntil([&] { return result.has_value(); })) << qPrintable(script.left(200));
    return result.value_or(QVariant());
}

void EditorWindow::fill(const QString &html) {
    const auto before = reports.size();
    editor->setInitialContent(html);
    EXPECT_TRUE(spinUntil([&] { return reports.size() > before; }));
}

std::optional<QString> EditorWindow::fetched() {
    std::optional<std::optional<QString>> result;
    editor->fetchContent([&](const std::optional<QString> &html) { result = html; });
    EXPECT_TRUE(spinUntil([&] { return result.has_value(); }));
    return result.value_or(std::nullopt);
}

bool EditorWindow::waitForReport(const QString &html) {
    return spinUntil([&] { return !reports.isEmpty() && reports.last() == html; });
}

QWidget *EditorWindow::input() const {
    return editor->findChild<QWebEngineView *>()->focusProxy();
}

void EditorWindow::type(const QString &text) {
    for (const auto letter : text) {
        QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, letter),
            release(QEvent::KeyRelease, 0, Qt::NoModifier, letter);
        QCoreApplication::sendEvent(input(), &press);
        QCoreApplication::sendEvent(input(), &release);
    }
}

void EditorWindow::press(int key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(input(), Qt::Key(key), modifiers);
}

void EditorWindow::click(QPoint pointInEditor, Qt::KeyboardModifiers modifiers) {
    QTest::mouseClick(input(), Qt::LeftButton, modifiers, pointInEditor);
}

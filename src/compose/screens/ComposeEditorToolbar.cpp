#include "compose/screens/ComposeEditorToolbar.h"

#include "compose/EditorScript.h"
#include "compose/screens/EditorAddressSheet.h"
#include "compose/screens/EditorImagePanel.h"
#include "compose/screens/EditorToolbarButtons.h"
#include "compose/screens/EditorWebViewRef.h"
#include "ui/screens/AccessibleRole.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/FlowLayout.h"

#include <QKeyEvent>
#include <QMenu>

#include <algorithm>

using namespace Qt::StringLiterals;

ComposeEditorToolbar::ComposeEditorToolbar(std::shared_ptr<EditorWebViewRef> webViewRef, QWidget *parent)
    : QWidget(parent)
    , m_ref(std::move(webViewRef)) {
    setAccessibleRole(this, QAccessible::ToolBar);
    setAccessibleName(tr("Formatting"));
    auto *flow = new FlowLayout(2, this);
    flow->setContentsMargins(8, 4, 8, 4);
    addTextButtons();
    addParagraphButtons();
    addInsertButtons();
    for (auto *button : std::as_const(m_buttons))
        button->setFocusPolicy(Qt::NoFocus);
    m_current = m_buttons.first();
    m_current->setFocusPolicy(Qt::TabFocus);
    connect(m_ref.get(), &EditorWebViewRef::linkRequested, this, &ComposeEditorToolbar::insertLink);
    connect(m_ref.get(), &EditorWebViewRef::toolbarRequested, this,
            [this] { m_current->setFocus(Qt::ShortcutFocusReason); });
    observe(m_ref.get(), this, &ComposeEditorToolbar::render);
}

void ComposeEditorToolbar::addTextButtons() {
    const auto choosing = [this](QString (*script)(const QString &)) {
        return [this, script](const QString &value) { run(script(value)); };
    };
    addMenu(u"textformat.size"_s, tr("Font Size"),
            makeChoiceMenu(editorFontSizes, false, this, choosing(&EditorScript::setFontSize)));
    addToggle(u"bold"_s, tr("Bold"), u"bold"_s);
    addToggle(u"italic"_s, tr("Italic"), u"italic"_s);
    addToggle(u"underline"_s, tr("Underline"), u"underline"_s);
    addToggle(u"strikethrough"_s, tr("Strikethrough"), u"strikeThrough"_s);
    addMenu(u"paintpalette"_s, tr("Text Color"),
            makeChoiceMenu(editorTextColors, true, this, choosing(&EditorScript::setTextColor)));
    addMenu(u"highlighter"_s, tr("Highlight"),
            makeChoiceMenu(editorHighlightColors, true, this, choosing(&EditorScript::setHighlightColor)));
}

void ComposeEditorToolbar::addParagraphButtons() {
    addToggle(u"text.alignleft"_s, tr("Align Left"), u"justifyLeft"_s);
    addToggle(u"text.aligncenter"_s, tr("Align Center"), u"justifyCenter"_s);
    addToggle(u"text.alignright"_s, tr("Align Right"), u"justifyRight"_s);
    addToggle(u"list.bullet"_s, tr("Bullets"), u"insertUnorderedList"_s);
    addToggle(u"list.number"_s, tr("Numbers"), u"insertOrderedList"_s);
    addCommand(u"increase.indent"_s, tr("Indent"), u"indent"_s);
    addCommand(u"decrease.indent"_s, tr("Outdent"), u"outdent"_s);
}

void ComposeEditorToolbar::addInsertButtons() {
    addAction(u"link"_s, tr("Insert Link"), [this] { insertLink(); });
    auto *images = new QMenu(this);
    images->addAction(tr("From File"), this, &ComposeEditorToolbar::insertImageFiles);
    images->addAction(tr("From URL"), this, &ComposeEditorToolbar::insertImageAddress);
    addMenu(u"photo"_s, tr("Insert Image"), images);
    m_buttons.last()->setToolTip(tr("Insert Image"));
    addAction(u"minus"_s, tr("Horizontal Rule"), [this] { run(EditorScript::insertRule()); });
    addCommand(u"eraser"_s, tr("Clear Format"), u"removeFormat"_s);
}

IconButton *ComposeEditorToolbar::add(const QString &symbol, const QString &name, const QString &help) {
    auto *button = new IconButton(symbol, help);
    button->setAccessibleName(name);
    button->installEventFilter(this);
    layout()->addWidget(button);
    m_buttons.append(button);
    return button;
}

void ComposeEditorToolbar::addAction(const QString &symbol, const QString &name, const std::function<void()> &action) {
    connect(add(symbol, name, name), &IconButton::clicked, this, action);
}

IconButton *ComposeEditorToolbar::addCommand(const QString &symbol, const QString &name, const QString &command) {
    auto *button = add(symbol, name, command);
    connect(button, &IconButton::clicked, this, [this, command] { run(EditorScript::command(command)); });
    return button;
}

void ComposeEditorToolbar::addToggle(const QString &symbol, const QString &name, const QString &command) {
    auto *button = addCommand(symbol, name, command);
    button->setCheckable(true);
    m_toggles.push_back({button, command});
    connect(button, &IconButton::clicked, this, &ComposeEditorToolbar::render);
}

void ComposeEditorToolbar::addMenu(const QString &symbol, const QString &name, QMenu *menu) {
    auto *button = add(symbol, name, {});
    button->setMenu(menu);
    button->setPopupMode(QToolButton::InstantPopup);
}

void ComposeEditorToolbar::run(const QString &script) {
    m_ref->run(script);
    m_ref->focusEditor();
}

// A press does not check the button by itself: the page tells what is in force at the caret.
void ComposeEditorToolbar::render() {
    for (const auto &toggle : m_toggles)
        toggle.button->setChecked(m_ref->activeCommands->contains(toggle.command));
}

void ComposeEditorToolbar::insertLink() {
    auto *sheet = new EditorAddressSheet(tr("Insert Link"), u"https://example.com"_s, window());
    connect(sheet, &EditorAddressSheet::inserted, this,
            [this](const QString &address) { run(EditorScript::createLink(address)); });
    connect(sheet, &QDialog::finished, this, [this] { m_ref->focusEditor(); });
    sheet->open();
}

void ComposeEditorToolbar::insertImageFiles() {
    showEditorImagePanel(this, [this](const QString &dataURL) { run(EditorScript::insertImage(dataURL)); });
}

void ComposeEditorToolbar::insertImageAddress() {
    auto *sheet = new EditorAddressSheet(tr("Insert Image URL"), u"https://example.com/image.png"_s, window());
    connect(sheet, &EditorAddressSheet::inserted, this, [this](const QString &address) {
        if (address.startsWith(u"data:"_s, Qt::CaseInsensitive))
            m_ref->run(EditorScript::insertImage(address));
        else
            m_ref->insertRemoteImage(address);
    });
    connect(sheet, &QDialog::finished, this, [this] { m_ref->focusEditor(); });
    sheet->open();
}

bool ComposeEditorToolbar::eventFilter(QObject *watched, QEvent *event) {
    const bool isEscape =
        event->type() == QEvent::ShortcutOverride && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape;
    if (isEscape)
        event->accept();
    if (event->type() != QEvent::KeyPress)
        return isEscape || QWidget::eventFilter(watched, event);
    const int forward = isRightToLeft() ? -1 : 1;
    switch (static_cast<QKeyEvent *>(event)->key()) {
    case Qt::Key_Right:
        moveFocus(forward);
        return true;
    case Qt::Key_Left:
        moveFocus(-forward);
        return true;
    case Qt::Key_Home:
        focusButton(m_buttons.first());
        return true;
    case Qt::Key_End:
        focusButton(m_buttons.last());
        return true;
    case Qt::Key_Down:
        m_current->showMenu();
        return true;
    case Qt::Key_Up:
        return true;
    case Qt::Key_Escape:
        m_ref->focusEditor();
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

void ComposeEditorToolbar::moveFocus(int step) {
    const auto next = m_buttons.indexOf(m_current) + step;
    focusButton(m_buttons[std::clamp(next, qsizetype(0), m_buttons.size() - 1)]);
}

void ComposeEditorToolbar::focusButton(IconButton *button) {
    m_current->setFocusPolicy(Qt::NoFocus);
    button->setFocusPolicy(Qt::TabFocus);
    m_current = button;
    button->setFocus(Qt::TabFocusReason);
}

#include "compose/screens/ComposeEditorToolbar.h"

#include "compose/EditorScript.h"
#include "compose/screens/EditorWebViewRef.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/FlowLayout.h"

using namespace Qt::StringLiterals;

ComposeEditorToolbar::ComposeEditorToolbar(std::shared_ptr<EditorWebViewRef> webViewRef, QWidget *parent)
    : QWidget(parent)
    , m_ref(std::move(webViewRef)) {
    new FlowLayout(2, this);
    addCommand(u"bold"_s, tr("Bold"), u"bold"_s);
    addCommand(u"italic"_s, tr("Italic"), u"italic"_s);
    addCommand(u"underline"_s, tr("Underline"), u"underline"_s);
    addCommand(u"strikethrough"_s, tr("Strikethrough"), u"strikeThrough"_s);
}

IconButton *ComposeEditorToolbar::add(const QString &symbol, const QString &name, const QString &help) {
    auto *button = new IconButton(symbol, help);
    button->setAccessibleName(name);
    layout()->addWidget(button);
    return button;
}

void ComposeEditorToolbar::addCommand(const QString &symbol, const QString &name, const QString &command) {
    connect(add(symbol, name, command), &IconButton::clicked, this, [this, command] {
        m_ref->run(EditorScript::command(command));
        m_ref->focusEditor();
    });
}

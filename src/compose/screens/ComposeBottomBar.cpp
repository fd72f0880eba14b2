#include "compose/screens/ComposeBottomBar.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/Spinner.h"
#include "ui/screens/Symbols.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

ComposeBottomBar::ComposeBottomBar(std::shared_ptr<ComposeState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_sending(new Spinner(16)) {
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    m_send = addButton(tr("Send"), u"paperplane.fill"_s);
    setButtonRole(m_send, ButtonRole::primary);
    m_send->setToolTip(tr("Send (⇧⌘D)"));
    m_sending->setAccessibleName(tr("Sending"));
    row->addWidget(m_sending);
    m_ai = addButton(tr("AI"), u"sparkles"_s);
    auto *templates = addIconButton(u"doc.on.doc"_s, tr("Templates"));
    auto *attach = addIconButton(u"paperclip"_s, tr("Attach Files"));
    m_cc = addButton(tr("Cc"));
    m_bcc = addButton(tr("Bcc"));
    row->addStretch(1);
    auto *discard = addIconButton(u"trash"_s, tr("Discard"));
    setButtonRole(discard, ButtonRole::destructive);

    connect(m_send, &QPushButton::clicked, this, &ComposeBottomBar::sendRequested);
    connect(m_ai, &QPushButton::clicked, m_state.get(), [this] { m_state->showAIPrompt = true; });
    connect(templates, &IconButton::clicked, m_state.get(), &ComposeState::openTemplates);
    connect(attach, &IconButton::clicked, m_state.get(), [this] { m_state->showAttachmentPicker = true; });
    connect(m_cc, &QPushButton::clicked, this, &ComposeBottomBar::ccRequested);
    connect(m_bcc, &QPushButton::clicked, this, &ComposeBottomBar::bccRequested);
    connect(discard, &IconButton::clicked, this, &ComposeBottomBar::discardRequested);
    observe(m_state.get(), this, &ComposeBottomBar::render);
}

QPushButton *ComposeBottomBar::addButton(const QString &text, const QString &symbol) {
    auto *button = new QPushButton(text);
    button->setAccessibleName(text);
    if (!symbol.isEmpty())
        button->setIcon(symbolIcon(symbol));
    pressWithReturn(button);
    layout()->addWidget(button);
    return button;
}

IconButton *ComposeBottomBar::addIconButton(const QString &symbol, const QString &help) {
    auto *button = new IconButton(symbol, help);
    layout()->addWidget(button);
    return button;
}

void ComposeBottomBar::render() {
    const auto &message = *m_state->viewModel;
    m_send->setEnabled(m_state->canSend());
    m_sending->setVisible(message.isSending);
    m_ai->setVisible(m_state->offersAI());
    m_cc->setVisible(!message.showCc);
    m_bcc->setVisible(!message.showBcc);
}

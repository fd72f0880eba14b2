#include "mail/screens/EmailToolbar.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/EntryMenu.h"
#include "ui/screens/Spinner.h"

#include <QHBoxLayout>

using namespace Qt::StringLiterals;

EmailToolbar::EmailToolbar(std::shared_ptr<EmailDetailState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_back(new IconButton(u"chevron.left"_s, tr("Back")))
    , m_checking(new Spinner(16)) {
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(12, 8, 12, 4);
    layout->setSpacing(4);
    layout->addWidget(m_back);
    layout->addStretch(1);
    layout->addWidget(m_checking);
    addAction(u"arrowshape.turn.up.left"_s, tr("Reply"), tr("Reply"), MacMailAction::reply);
    addAction(u"arrowshape.turn.up.left.2"_s, tr("Reply All"), tr("Reply All (⇧⌘R)"), MacMailAction::replyAll);
    addAction(u"arrowshape.turn.up.right"_s, tr("Forward"), tr("Forward (⇧⌘F)"), MacMailAction::forward);
    m_star = addAction(u"star"_s, tr("Flag"), tr("Flag"), MacMailAction::flag);
    m_more = add(u"ellipsis.circle"_s, tr("More"), tr("More"));
    m_checking->setAccessibleName(tr("Checking for spam"));
    connect(m_more, &IconButton::clicked, this, &EmailToolbar::showMenu);
    connect(m_back, &IconButton::clicked, m_state.get(), &EmailDetailState::goBack);
    observe(m_state.get(), this, &EmailToolbar::render);
}

IconButton *EmailToolbar::add(const QString &symbol, const QString &name, const QString &help) {
    auto *button = new IconButton(symbol, help);
    button->setAccessibleName(name);
    layout()->addWidget(button);
    m_group.append(button);
    return button;
}

IconButton *EmailToolbar::addAction(const QString &symbol, const QString &name, const QString &help,
                                    MacMailAction action) {
    auto *button = add(symbol, name, help);
    connect(button, &IconButton::clicked, m_state.get(), [state = m_state.get(), action] { state->perform(action); });
    return button;
}

void EmailToolbar::render() {
    const bool hasMessage = m_state->content() == EmailDetailState::Content::message;
    // While the next message loads the buttons stay as they are: it mostly comes at once.
    if (m_state->content() != EmailDetailState::Content::loading)
        for (auto *button : m_group)
            button->setEnabled(hasMessage);
    m_back->setVisible(m_state->isPushed());
    m_checking->setVisible(m_state->isCheckingSpam);
    m_star->setSymbol(m_state->isFlagged() ? u"star.fill"_s : u"star"_s);
    m_star->setAccessibleDescription(m_state->isFlagged() ? tr("Flagged") : tr("Not flagged"));
}

void EmailToolbar::showMenu() {
    showEntryMenu({m_state->moreEntries()}, m_more);
}

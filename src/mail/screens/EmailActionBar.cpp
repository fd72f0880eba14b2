#include "mail/screens/EmailActionBar.h"

#include "ui/screens/Buttons.h"
#include "ui/screens/FlowLayout.h"
#include "ui/screens/Symbols.h"

using namespace Qt::StringLiterals;

EmailActionBar::EmailActionBar(const std::shared_ptr<EmailDetailState> &state, QWidget *parent)
    : QWidget(parent) {
    auto *layout = new FlowLayout(8, this);
    layout->setContentsMargins(20, 16, 20, 20);
    const auto add = [&](const QString &text, const QString &symbol, MacMailAction action) {
        auto *button = new QPushButton(text);
        button->setAccessibleName(text);
        button->setIcon(symbolIcon(symbol));
        pressWithReturn(button);
        connect(button, &QPushButton::clicked, state.get(), [state = state.get(), action] { state->perform(action); });
        layout->addWidget(button);
    };
    add(tr("Reply"), u"arrowshape.turn.up.left"_s, MacMailAction::reply);
    add(tr("Reply All"), u"arrowshape.turn.up.left.2"_s, MacMailAction::replyAll);
    add(tr("Forward"), u"arrowshape.turn.up.right"_s, MacMailAction::forward);
}

#include "mail/FocusedActions.h"

void FocusedActions::publishMailbox(std::optional<MacMailboxActions> actions) {
    m_mailbox = std::move(actions);
    scheduleChange();
}

void FocusedActions::publishMessage(std::optional<MacMessageActions> actions) {
    m_message = std::move(actions);
    scheduleChange();
}

void FocusedActions::publishCompose(std::optional<MacComposeActions> actions) {
    m_compose = std::move(actions);
    scheduleChange();
}

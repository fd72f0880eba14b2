#pragma once

#include "mail/MacMailAction.h"
#include "platform/ObservableObject.h"

#include <optional>

/// What the screens of one window offer to its menu bar at the moment. Each screen publishes its own record and takes
/// it back when it is no longer on show. Main thread only.
class FocusedActions : public ObservableObject {
    Q_OBJECT
public:
    using ObservableObject::ObservableObject;

    const std::optional<MacMailboxActions> &mailbox() const { return m_mailbox; }
    const std::optional<MacMessageActions> &message() const { return m_message; }
    const std::optional<MacComposeActions> &compose() const { return m_compose; }

    void publishMailbox(std::optional<MacMailboxActions> actions);
    void publishMessage(std::optional<MacMessageActions> actions);
    void publishCompose(std::optional<MacComposeActions> actions);

private:
    std::optional<MacMailboxActions> m_mailbox;
    std::optional<MacMessageActions> m_message;
    std::optional<MacComposeActions> m_compose;
};

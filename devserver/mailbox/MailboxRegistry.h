#pragma once

#include "accounts/Account.h"
#include "mailbox/Mailbox.h"

/// The open mailboxes by account. Safe from any thread.
class MailboxRegistry {
public:
    MailboxRegistry(std::filesystem::path stateFolder, BlockedStore &blocked, EventHub &events);

    /// Opens an account's mailbox over `maildir`.
    void open(const Account &account, const std::filesystem::path &maildir);
    /// The account's mailbox, opened over its folder of the state when it is not open yet.
    Mailbox &of(const Account &account);
    /// Where an account's mail lies unless told otherwise.
    std::filesystem::path defaultMaildir(const Account &account) const;

private:
    Mailbox &openLocked(const Account &account, const std::filesystem::path &maildir);

    std::mutex m_mutex;
    std::filesystem::path m_stateFolder;
    BlockedStore &m_blocked;
    EventHub &m_events;
    std::map<std::string, std::unique_ptr<Mailbox>> m_mailboxes;
};

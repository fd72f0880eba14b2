#include "mailbox/MailboxRegistry.h"

#include "mime/TextDecoding.h"

MailboxRegistry::MailboxRegistry(std::filesystem::path stateFolder, BlockedStore &blocked, EventHub &events)
    : m_stateFolder(std::move(stateFolder))
    , m_blocked(blocked)
    , m_events(events) {
    std::filesystem::create_directories(m_stateFolder / "index");
}

std::filesystem::path MailboxRegistry::defaultMaildir(const Account &account) const {
    return m_stateFolder / "mail" / foldCase(account.username);
}

void MailboxRegistry::open(const Account &account, const std::filesystem::path &maildir) {
    const std::lock_guard lock(m_mutex);
    openLocked(account, maildir);
}

Mailbox &MailboxRegistry::of(const Account &account) {
    const std::lock_guard lock(m_mutex);
    const auto found = m_mailboxes.find(account.id);
    if (found != m_mailboxes.end())
        return *found->second;
    const auto maildir = defaultMaildir(account);
    MaildirTree::makeMaildir(maildir);
    return openLocked(account, maildir);
}

Mailbox &MailboxRegistry::openLocked(const Account &account, const std::filesystem::path &maildir) {
    const auto roles = accountRecord(account)["folder_mapping"].get<std::map<std::string, std::string>>();
    const auto index = m_stateFolder / "index" / (account.id + ".sqlite");
    auto &mailbox = m_mailboxes[account.id];
    mailbox = std::make_unique<Mailbox>(account.id, roles, maildir, index, m_blocked, m_events);
    mailbox->watch();
    return *mailbox;
}

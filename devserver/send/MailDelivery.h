#pragma once

#include "accounts/AccountStore.h"
#include "mailbox/MailboxRegistry.h"
#include "send/OutgoingMessage.h"

struct ServerOptions;

/// Brings messages to those they are written to: into the inboxes of this server's accounts, and by SMTP to others.
class MailDelivery {
public:
    MailDelivery(const ServerOptions &options, AccountStore &accounts, MailboxRegistry &mailboxes);

    /// To all recipients and into the sender's folder for sent mail, or to nobody: fails with an APIError before
    /// anything can be seen anywhere.
    void send(const Account &sender, const OutgoingMessage &message);

private:
    struct Route {
        std::vector<Account> accounts;
        std::vector<std::string> others;
    };

    Route routeOf(const OutgoingMessage &message);
    void requireSMTP(const std::vector<std::string> &recipients) const;

    const ServerOptions &m_options;
    AccountStore &m_accounts;
    MailboxRegistry &m_mailboxes;
};

/// Everybody of To, Cc and Bcc.
std::vector<MessageAddress> recipientsOf(const OutgoingMessage &message);

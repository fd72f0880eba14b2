#include "send/MailDelivery.h"

#include "ServerOptions.h"
#include "http/APIError.h"
#include "mime/TextDecoding.h"
#include "send/MessageComposer.h"
#include "send/SMTPSending.h"

#include <algorithm>

namespace {

std::string joined(const std::vector<std::string> &texts) {
    std::string list;
    for (const auto &text : texts)
        list += (list.empty() ? "" : ", ") + text;
    return list;
}

struct PendingMail {
    Mailbox &mailbox;
    std::string folder;
    MaildirDelivery file;

    void finish(const std::string &flags) { mailbox.finishDelivery(folder, file, flags); }
};

PendingMail prepare(Mailbox &mailbox, const std::string &role, const std::string &bytes) {
    auto folder = mailbox.provideFolder(role);
    auto file = mailbox.prepareDelivery(folder, bytes);
    return {mailbox, std::move(folder), std::move(file)};
}

} // namespace

std::vector<MessageAddress> recipientsOf(const OutgoingMessage &message) {
    auto recipients = message.to;
    recipients.insert(recipients.end(), message.cc.begin(), message.cc.end());
    recipients.insert(recipients.end(), message.bcc.begin(), message.bcc.end());
    return recipients;
}

MailDelivery::MailDelivery(const ServerOptions &options, AccountStore &accounts, MailboxRegistry &mailboxes)
    : m_options(options)
    , m_accounts(accounts)
    , m_mailboxes(mailboxes) {}

/// Nobody gets a message twice who is named twice or by two addresses.
MailDelivery::Route MailDelivery::routeOf(const OutgoingMessage &message) {
    Route route;
    std::set<std::string> known;
    for (const auto &recipient : recipientsOf(message)) {
        const auto account = m_accounts.find(recipient.address);
        if (!known.insert(account ? account->id : foldCase(recipient.address)).second)
            continue;
        if (account)
            route.accounts.push_back(*account);
        else
            route.others.push_back(recipient.address);
    }
    return route;
}

void MailDelivery::requireSMTP(const std::vector<std::string> &recipients) const {
    if (recipients.empty() || m_options.smtp)
        return;
    throw APIError(422, "Nothing was sent: this server has no account " + joined(recipients) +
                            " and knows no mail server to hand it to");
}

void MailDelivery::send(const Account &sender, const OutgoingMessage &message) {
    const auto route = routeOf(message);
    requireSMTP(route.others);
    const auto bytes = composeMessage(message);
    std::vector<PendingMail> deliveries;
    for (const auto &account : route.accounts)
        deliveries.push_back(prepare(m_mailboxes.of(account), "inbox", bytes));
    auto sent = prepare(m_mailboxes.of(sender), "sent", bytes);
    if (!route.others.empty())
        sendBySMTP(*m_options.smtp, m_options.smtpTimeout, {message.from.address, route.others}, bytes);
    sent.finish("S");
    for (auto &delivery : deliveries)
        delivery.finish("");
}

#include "DevServer.h"

#include "demo/DemoAccounts.h"
#include "demo/DemoMailbox.h"

#include <algorithm>

namespace fs = std::filesystem;

namespace {

fs::path madeFolder(const fs::path &folder) {
    fs::create_directories(folder);
    fs::permissions(folder, fs::perms::owner_all);
    return folder;
}

NewAccount namedAccount(const std::string &name) {
    const auto &known = demoAccounts();
    const auto found =
        std::find_if(known.begin(), known.end(), [&](const auto &wish) { return wish.username == name; });
    return found == known.end() ? NewAccount{name, {}, name + "@corvanite.example", name} : *found;
}

std::vector<NewAccount> wantedAccounts(const ServerOptions &options) {
    if (options.accounts.empty())
        return demoAccounts();
    std::vector<NewAccount> accounts;
    for (const auto &[name, password] : options.accounts) {
        auto wish = namedAccount(name);
        wish.password = password;
        wish.isAdministrator |= accounts.empty();
        accounts.push_back(std::move(wish));
    }
    return accounts;
}

bool holdsMail(const fs::path &maildir) {
    return !MaildirTree::scan(maildir).empty();
}

void makeDemoMailbox(const fs::path &maildir) {
    MaildirTree::makeMaildir(maildir);
    if (!holdsMail(maildir))
        generateDemoMailbox(maildir, std::chrono::system_clock::now());
}

} // namespace

DevServer::DevServer(const ServerOptions &options)
    : m_options(options)
    , m_accounts(madeFolder(options.state) / "accounts.sqlite")
    , m_jobs(options.state / "jobs.sqlite")
    , m_blocked(options.state / "blocked.sqlite")
    , m_templates(options.state / "templates.sqlite")
    , m_contacts(options.state / "contacts.sqlite")
    , m_mailboxes(options.state, m_blocked, m_events)
    , m_delivery(options, m_accounts, m_mailboxes)
    , m_runner(m_jobs, options.jobPause)
    , m_context{options,  m_accounts, m_events,    m_mailboxes, m_jobs,
                m_runner, m_blocked,  m_templates, m_contacts,  m_delivery}
    , m_frontend(options, m_router, m_accounts) {
    addRoutes();
    openMailboxes();
}

void DevServer::addRoutes() {
    for (const auto add : {addAuthRoutes, addFolderRoutes, addListRoutes, addReadRoutes, addAttachmentRoutes,
                           addChangeRoutes, addJobRoutes, addEventRoutes, addChatRoutes, addBlockedRoutes, addAIRoutes,
                           addSendRoutes, addTemplateRoutes, addContactRoutes, addFaviconRoutes})
        add(m_router, m_context);
}

void DevServer::openMailboxes() {
    bool isFirst = true;
    for (const auto &wish : wantedAccounts(m_options)) {
        const auto account = provideAccount(wish);
        if (isFirst && m_options.maildir) {
            m_mailboxes.open(account, *m_options.maildir);
        } else {
            const auto maildir = m_mailboxes.defaultMaildir(account);
            isFirst ? makeDemoMailbox(maildir) : MaildirTree::makeMaildir(maildir);
            m_mailboxes.open(account, maildir);
        }
        isFirst = false;
    }
}

/// The options' password counts, whatever a former run was told.
Account DevServer::provideAccount(const NewAccount &wish) {
    const auto known = m_accounts.find(wish.username);
    if (!known)
        return createAccount(wish);
    if (!m_accounts.authenticate(wish.username, wish.password))
        m_accounts.setPassword(known->id, wish.password);
    return *known;
}

Account DevServer::createAccount(const NewAccount &wish) {
    const auto account = m_accounts.create(wish);
    if (wish.username == demoAccounts().front().username) {
        addDemoTemplates(m_templates, account.id);
        addDemoContacts(m_contacts, account.id);
    }
    return account;
}

std::string DevServer::bind() {
    const auto scheme = m_options.useTLS ? "https" : "http";
    return std::string(scheme) + "://127.0.0.1:" + std::to_string(m_frontend.bind());
}

void DevServer::run() {
    m_frontend.run();
}

void DevServer::stop() {
    m_events.close();
    m_runner.stop();
    m_frontend.stop();
}

#pragma once

#include "api/APIRoutes.h"
#include "http/HTTPFrontend.h"

/// The whole server, put together from its options.
class DevServer {
public:
    explicit DevServer(const ServerOptions &options);

    /// Takes the port and returns the server's address.
    std::string bind();
    /// Serves until stop() is called from another thread.
    void run();
    /// Ends streams and jobs, lets requests finish.
    void stop();

private:
    void addRoutes();
    void openMailboxes();
    Account provideAccount(const NewAccount &wish);
    Account createAccount(const NewAccount &wish);

    const ServerOptions &m_options;
    EventHub m_events;
    AccountStore m_accounts;
    JobStore m_jobs;
    BlockedStore m_blocked;
    TemplateStore m_templates;
    ContactStore m_contacts;
    MailboxRegistry m_mailboxes;
    MailDelivery m_delivery;
    // Behind what its jobs use, so that it ends before.
    JobRunner m_runner;
    ServerContext m_context;
    Router m_router;
    HTTPFrontend m_frontend;
};

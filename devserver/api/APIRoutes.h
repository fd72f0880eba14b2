#pragma once

#include "ServerOptions.h"
#include "accounts/AccountStore.h"
#include "directory/ContactStore.h"
#include "directory/TemplateStore.h"
#include "http/Router.h"
#include "jobs/JobRunner.h"
#include "mailbox/MailboxRegistry.h"
#include "rules/BlockedStore.h"
#include "send/MailDelivery.h"

/// What handlers work with; lives as long as the server.
struct ServerContext {
    const ServerOptions &options;
    AccountStore &accounts;
    EventHub &events;
    MailboxRegistry &mailboxes;
    JobStore &jobs;
    JobRunner &runner;
    BlockedStore &blocked;
    TemplateStore &templates;
    ContactStore &contacts;
    MailDelivery &delivery;

    Mailbox &mailbox(const APIRequest &request) const { return mailboxes.of(request.account()); }
};

/// One function and one file for each group of endpoints.
void addAuthRoutes(Router &router, ServerContext &context);
void addFolderRoutes(Router &router, ServerContext &context);
void addListRoutes(Router &router, ServerContext &context);
void addReadRoutes(Router &router, ServerContext &context);
void addAttachmentRoutes(Router &router, ServerContext &context);
void addChangeRoutes(Router &router, ServerContext &context);
void addJobRoutes(Router &router, ServerContext &context);
void addEventRoutes(Router &router, ServerContext &context);
void addChatRoutes(Router &router, ServerContext &context);
void addBlockedRoutes(Router &router, ServerContext &context);
void addAIRoutes(Router &router, ServerContext &context);
void addSendRoutes(Router &router, ServerContext &context);
void addTemplateRoutes(Router &router, ServerContext &context);
void addContactRoutes(Router &router, ServerContext &context);
void addFaviconRoutes(Router &router, ServerContext &context);

#pragma once

#include "accounts/AccountStore.h"
#include "directory/ContactStore.h"
#include "directory/TemplateStore.h"

/// Dana Okafor, "demo", whose mailbox is filled, and a colleague to write to. The passwords are "corvanite".
const std::vector<NewAccount> &demoAccounts();

/// Templates and contacts that Dana Okafor would have.
void addDemoTemplates(TemplateStore &templates, const std::string &accountID);
void addDemoContacts(ContactStore &contacts, const std::string &accountID);

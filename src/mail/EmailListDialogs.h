#pragma once

#include "mail/EmailListActions.h"
#include "ui/MenuEntry.h"

/// A question before something is done to the selected messages. "Cancel" goes without saying.
struct EmailListDialog {
    QString title;
    /// May be empty.
    QString message;
    std::vector<MenuEntry> choices;
};

EmailListDialog deleteDialog(const std::shared_ptr<EmailListActions> &actions, qint64 count);
EmailListDialog spamDialog(const std::shared_ptr<EmailListActions> &actions, qint64 count);
EmailListDialog blockDialog(const std::shared_ptr<EmailListActions> &actions, qint64 count);

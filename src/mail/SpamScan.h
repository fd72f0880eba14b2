#pragma once

#include "mail/MailboxViewModel.h"
#include "ui/ToastMessage.h"

/// Which messages of a page a scan looks at: the selected ones, or without a selection the first unread ones.
std::vector<EmailSummary> spamCandidates(const std::vector<EmailSummary> &emails, const std::set<qint64> &selected);

/// Has the server's model judge the candidates of a list and moves what it calls spam, one by one. Never fails: what
/// it returns says how it ended.
QCoro::Task<ToastMessage> scanForSpam(std::shared_ptr<MailboxViewModel> list, QString folder, QString junkFolder);

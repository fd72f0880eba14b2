#pragma once

#include "mail/EmailService.h"

/// The one place that looks for new mail and chat. It keeps the badges up to date and remembers how far each mailbox
/// has been looked through, so that nothing counts as new twice. Main thread only; failures wait for the next check.
class EmailCheckCoordinator {
public:
    static EmailCheckCoordinator &shared();

    /// Checks once. Requests that come while a check runs return at once and together cost one further check, which
    /// delivers if any of them asked for it.
    QCoro::Task<> check(bool deliver);

private:
    EmailCheckCoordinator() = default;

    QCoro::Task<> runPass(bool deliver);
    QCoro::Task<> checkMail();
    QCoro::Task<> updateAllFoldersCount(qint64 inboxUnseen);
    QCoro::Task<> checkChat();

    bool m_checking = false;
    bool m_refreshAgain = false;
    bool m_deliverAgain = false;
};

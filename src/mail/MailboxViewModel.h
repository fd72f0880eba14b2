#pragma once

#include "mail/EmailService.h"
#include "platform/ObservableObject.h"

#include <QUuid>
#include <memory>
#include <set>
#include <stop_token>

/// One message list: which page of which folder is on screen, which rows are selected, which filters are in force, and
/// what can be done to them. It shows exactly one page of the server's, replaced whole by each load; a change is made
/// on the server first and to the rows only after it. Changes that fail change nothing and report nothing. Main thread
/// only, made with `std::make_shared`.
///
/// `folder` is always a real path; the favourites are "INBOX" with `flaggedOnly`.
class MailboxViewModel : public ObservableObject, public std::enable_shared_from_this<MailboxViewModel> {
    Q_OBJECT
public:
    static constexpr qint64 pageSize = 50;

    Published<std::vector<EmailSummary>> emails{this};
    /// Messages in the whole folder that match.
    Published<qint64> totalEmails{this, 0};
    /// From 1.
    Published<qint64> currentPage{this, 1};
    Published<qint64> totalPages{this, 0};
    /// A load runs and no rows are on screen.
    Published<bool> isLoading{this, false};
    Published<QString> searchQuery{this};
    /// The rows chosen for bulk actions, by uid.
    Published<std::set<qint64>> selectedEmails{this};
    /// Why the last load failed.
    Published<std::optional<QString>> errorMessage{this};
    Published<bool> filterHasAttachment{this, false};
    /// 0 for any time.
    Published<qint64> filterLastDays{this, 0};
    /// "yyyy-MM-dd".
    Published<std::optional<QString>> filterDateFrom{this}, filterDateTo{this};
    /// The ticket of the newest load.
    Published<QUuid> loadID{this, QUuid::createUuid()};
    /// The folder that the rows belong to.
    Published<QString> loadedFolder{this};
    /// A load runs while rows stay on screen.
    Published<bool> isRefreshing{this, false};
    /// Jobs that the server still does after a big bulk action.
    Published<qint64> backgroundJobsActive{this, 0};

    bool hasActiveFilters() const;
    QString pageInfoText() const;

    /// Replaces the rows by a page from the server; without `page`, by the current one. A load that is stopped or
    /// overtaken by a later one changes nothing more.
    QCoro::Task<> load(QString folder, std::optional<qint64> page, bool flaggedOnly, std::stop_token stop = {});
    QCoro::Task<> nextPage(QString folder, bool flaggedOnly);
    QCoro::Task<> previousPage(QString folder, bool flaggedOnly);
    void clearFilters();
    void markSeenLocally(qint64 uid);
    /// Takes rows and their selection away without asking the server; `totalEmails` stays.
    void removeRows(const std::set<qint64> &uids);
    /// The server is being asked to take messages out of a folder: a page that it sends meanwhile may lack them
    /// already, and they will still be taken off `totalEmails`.
    bool isRemoving() const { return m_removals > 0; }

    QCoro::Task<> deleteOne(qint64 uid, QString folder, QString toFolder);
    QCoro::Task<> moveOne(qint64 uid, QString fromFolder, QString toFolder);
    /// `flag` is "seen" or "flagged".
    QCoro::Task<> flagOne(qint64 uid, QString folder, QString flag, bool value);

    QCoro::Task<> bulkDelete(QString folder, QString toFolder);
    QCoro::Task<> bulkMove(QString fromFolder, QString toFolder);
    QCoro::Task<> bulkMarkRead(QString folder);
    QCoro::Task<> bulkMarkUnread(QString folder);
    QCoro::Task<> bulkFlag(QString folder, bool value);

    /// The addresses of the selected rows' senders, each once, sorted.
    std::vector<QString> selectedSenders() const;
    /// Blocks the selected rows' senders, or their domains, and deletes the rows for good; the number of rules added.
    QCoro::Task<qint64> blockSelected(QString folder, bool byDomain);
    /// The same for one message; the pattern of the rule, absent when none was added.
    QCoro::Task<std::optional<QString>> blockOne(EmailSummary email, QString folder, bool byDomain);

private:
    using Flag = std::optional<bool> EmailSummary::*;

    QUuid beginLoad(const QString &folder, std::optional<qint64> page);
    EmailQuery query(const QString &folder, bool flaggedOnly) const;
    bool asksForCachedPage(bool flaggedOnly) const;
    bool isStale(const QUuid &ticket, const std::stop_token &stop) const;
    QCoro::Task<> showCachedPage(QString folder, QUuid ticket, std::stop_token stop);
    void showPage(const EmailListResponse &response);
    void endLoad();
    void startWidgetUpdate(const QString &folder);

    std::vector<qint64> selectedUIDs() const;
    /// Another folder may be on show by the time that a change is made; its uids mean other messages.
    bool shows(const QString &folder) const;
    void removeLocally(const QString &folder, const std::vector<qint64> &uids);
    void removeFromList(const std::vector<qint64> &uids);
    void deselect(const std::set<qint64> &uids);
    void deselectAll(const QString &folder);
    void setLocally(const QString &folder, const std::vector<qint64> &uids, Flag flag, bool value);
    QCoro::Task<> bulkRemove(QCoro::Task<> change, QString folder, std::vector<qint64> uids);
    QCoro::Task<> bulkSet(QString folder, QString name, Flag flag, bool value);

    class Removal;

    EmailService m_emailService;
    int m_removals = 0;
};

#include "mail/MailboxViewModel.h"

#include "mail/WidgetSnapshot.h"
#include "notify/NotificationService.h"
#include "platform/Tasks.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

QCoro::Task<> updateWidget(WidgetSnapshot snapshot, QString folder) {
    snapshot.write(snapshot.unseenCount());
    try {
        const auto state = co_await EmailService::notificationState(folder);
        co_await NotificationService::shared().applyMailboxState(state);
        snapshot.write(state.unseen);
    } catch (const std::exception &) {
        // The count of the page stands until the next load.
    }
}

} // namespace

bool MailboxViewModel::hasActiveFilters() const {
    return filterHasAttachment || filterLastDays > 0 || filterDateFrom.get() || filterDateTo.get();
}

QString MailboxViewModel::pageInfoText() const {
    if (totalEmails < 1)
        return u"No emails"_s;
    const auto first = (currentPage - 1) * pageSize + 1;
    const auto last = std::min<qint64>(totalEmails, currentPage * pageSize);
    return u"%1-%2 of %3"_s.arg(first).arg(last).arg(totalEmails.get());
}

void MailboxViewModel::clearFilters() {
    filterHasAttachment = false;
    filterLastDays = 0;
    filterDateFrom = std::nullopt;
    filterDateTo = std::nullopt;
}

QCoro::Task<> MailboxViewModel::load(QString folder, std::optional<qint64> page, bool flaggedOnly,
                                     std::stop_token stop) {
    const auto self = shared_from_this();
    const auto ticket = beginLoad(folder, page);
    const auto wanted = query(folder, flaggedOnly);
    const bool isWidgetPage = folder.toUpper() == "INBOX"_L1 && wanted.page == 1 && wanted.search.isEmpty();
    if (asksForCachedPage(flaggedOnly))
        co_await showCachedPage(folder, ticket, stop);
    if (isStale(ticket, stop))
        co_return;
    try {
        const auto response = co_await m_emailService.listEmails(wanted);
        if (isStale(ticket, stop))
            co_return;
        showPage(response);
        endLoad();
        if (isWidgetPage)
            startWidgetUpdate(folder);
    } catch (const std::exception &) {
        if (isStale(ticket, stop))
            co_return;
        errorMessage = errorText(std::current_exception());
        endLoad();
    }
}

QUuid MailboxViewModel::beginLoad(const QString &folder, std::optional<qint64> page) {
    loadID = QUuid::createUuid();
    if (folder != loadedFolder.get()) {
        emails = {};
        selectedEmails = {};
        totalEmails = 0;
        totalPages = 0;
        loadedFolder = folder;
    }
    errorMessage = std::nullopt;
    if (page)
        currentPage = *page;
    (emails->empty() ? isLoading : isRefreshing) = true;
    return loadID;
}

EmailQuery MailboxViewModel::query(const QString &folder, bool flaggedOnly) const {
    return {.folder = folder,
            .page = currentPage,
            .perPage = pageSize,
            .search = searchQuery,
            .hasAttachment = filterHasAttachment,
            .lastDays = filterLastDays,
            .flaggedOnly = flaggedOnly,
            .dateFrom = filterDateFrom,
            .dateTo = filterDateTo};
}

bool MailboxViewModel::asksForCachedPage(bool flaggedOnly) const {
    return emails->empty() && currentPage == 1 && !flaggedOnly && searchQuery->isEmpty() && !hasActiveFilters();
}

bool MailboxViewModel::isStale(const QUuid &ticket, const std::stop_token &stop) const {
    return stop.stop_requested() || loadID.get() != ticket;
}

QCoro::Task<> MailboxViewModel::showCachedPage(QString folder, QUuid ticket, std::stop_token stop) {
    const auto self = shared_from_this();
    try {
        const auto cached = co_await m_emailService.cachedEmails(folder, 1, pageSize);
        if (cached.emails.empty() || isStale(ticket, stop))
            co_return;
        emails = cached.emails;
        totalEmails = cached.total;
        totalPages = cached.pages;
        isRefreshing = true;
    } catch (const std::exception &) {
        // The live page follows.
    }
}

void MailboxViewModel::showPage(const EmailListResponse &response) {
    std::set<qint64> stillSelected;
    for (const auto &email : response.emails)
        if (selectedEmails->contains(email.uid))
            stillSelected.insert(email.uid);
    emails = response.emails;
    selectedEmails = stillSelected;
    totalEmails = response.total;
    totalPages = response.pages;
}

void MailboxViewModel::endLoad() {
    isLoading = false;
    isRefreshing = false;
}

void MailboxViewModel::startWidgetUpdate(const QString &folder) {
    launch(updateWidget(WidgetSnapshot(emails, folder), folder));
}

QCoro::Task<> MailboxViewModel::nextPage(QString folder, bool flaggedOnly) {
    const auto self = shared_from_this();
    if (currentPage >= totalPages)
        co_return;
    currentPage = currentPage + 1;
    co_await load(folder, std::nullopt, flaggedOnly);
}

QCoro::Task<> MailboxViewModel::previousPage(QString folder, bool flaggedOnly) {
    const auto self = shared_from_this();
    if (currentPage < 2)
        co_return;
    currentPage = currentPage - 1;
    co_await load(folder, std::nullopt, flaggedOnly);
}

#include "mail/BackgroundJobWatch.h"
#include "mail/FlagChanges.h"
#include "mail/MailboxViewModel.h"
#include "platform/Tasks.h"
#include "rules/BlockedService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

/// The server finishes bulk actions of this size in the background.
constexpr std::size_t backgroundJobSize = 6;

/// Whether the change succeeded.
QCoro::Task<bool> accepted(QCoro::Task<> change) {
    try {
        co_await change;
    } catch (const std::exception &) {
        co_return false;
    }
    co_return true;
}

/// The pattern that blocks everybody at the address's domain; absent when it has none.
std::optional<QString> domainPattern(const QString &address) {
    const auto pieces = address.split(u'@', Qt::SkipEmptyParts);
    return pieces.isEmpty() ? std::nullopt : std::optional(u"*@"_s + pieces.last());
}

std::optional<QString> blockPattern(const QString &address, bool byDomain) {
    return byDomain ? domainPattern(address) : address;
}

std::set<QString> blockPatterns(const std::vector<QString> &addresses, bool byDomain) {
    std::set<QString> patterns;
    for (const auto &address : addresses)
        if (const auto pattern = blockPattern(address, byDomain))
            patterns.insert(*pattern);
    return patterns;
}

} // namespace

/// Counts as a running removal while it lives.
class MailboxViewModel::Removal {
public:
    explicit Removal(MailboxViewModel &model)
        : m_model(model) {
        ++m_model.m_removals;
    }
    ~Removal() {
        --m_model.m_removals;
        m_model.scheduleChange();
    }
    Q_DISABLE_COPY_MOVE(Removal)

private:
    MailboxViewModel &m_model;
};

void MailboxViewModel::markSeenLocally(qint64 uid) {
    setLocally(loadedFolder, {uid}, &EmailSummary::seen, true);
}

bool MailboxViewModel::shows(const QString &folder) const {
    return loadedFolder.get() == folder;
}

void MailboxViewModel::removeRows(const std::set<qint64> &uids) {
    removeFromList({uids.begin(), uids.end()});
    deselect(uids);
}

void MailboxViewModel::deselect(const std::set<qint64> &uids) {
    auto selection = selectedEmails.get();
    std::erase_if(selection, [&](qint64 uid) { return uids.contains(uid); });
    selectedEmails = std::move(selection);
}

void MailboxViewModel::deselectAll(const QString &folder) {
    if (shows(folder))
        selectedEmails = {};
}

void MailboxViewModel::removeFromList(const std::vector<qint64> &uids) {
    auto rows = emails.get();
    std::erase_if(
        rows, [&](const EmailSummary &email) { return std::find(uids.begin(), uids.end(), email.uid) != uids.end(); });
    emails = std::move(rows);
}

void MailboxViewModel::removeLocally(const QString &folder, const std::vector<qint64> &uids) {
    if (!shows(folder))
        return;
    removeFromList(uids);
    totalEmails = std::max<qint64>(0, totalEmails - qint64(uids.size()));
}

void MailboxViewModel::setLocally(const QString &folder, const std::vector<qint64> &uids, Flag flag, bool value) {
    if (!shows(folder))
        return;
    auto rows = emails.get();
    for (const auto uid : uids) {
        const auto row =
            std::find_if(rows.begin(), rows.end(), [&](const EmailSummary &email) { return email.uid == uid; });
        if (row != rows.end())
            (*row).*flag = value;
    }
    emails = std::move(rows);
}

QCoro::Task<> MailboxViewModel::deleteOne(qint64 uid, QString folder, QString toFolder) {
    const auto self = shared_from_this();
    const Removal removal(*this);
    const bool done = co_await accepted(m_emailService.deleteEmail(uid, folder, false, toFolder));
    if (done)
        removeLocally(folder, {uid});
}

QCoro::Task<> MailboxViewModel::moveOne(qint64 uid, QString fromFolder, QString toFolder) {
    const auto self = shared_from_this();
    const Removal removal(*this);
    const bool done = co_await accepted(m_emailService.moveEmail(uid, fromFolder, toFolder));
    if (done)
        removeLocally(fromFolder, {uid});
}

QCoro::Task<> MailboxViewModel::flagOne(qint64 uid, QString folder, QString flag, bool value) {
    const auto self = shared_from_this();
    const bool done = co_await accepted(m_emailService.setFlag(uid, folder, flag, value));
    if (done && flag == "flagged"_L1)
        setLocally(folder, {uid}, &EmailSummary::flagged, value);
    if (done && flag == "seen"_L1)
        setLocally(folder, {uid}, &EmailSummary::seen, value);
    if (done)
        Q_EMIT FlagChanges::shared().changed(folder, {uid}, flag, value);
}

std::vector<qint64> MailboxViewModel::selectedUIDs() const {
    return {selectedEmails->begin(), selectedEmails->end()};
}

QCoro::Task<> MailboxViewModel::bulkDelete(QString folder, QString toFolder) {
    const auto self = shared_from_this();
    const auto uids = selectedUIDs();
    if (!uids.empty())
        co_await bulkRemove(m_emailService.bulkDeleteEmails(uids, folder, false, toFolder), folder, uids);
}

QCoro::Task<> MailboxViewModel::bulkMove(QString fromFolder, QString toFolder) {
    const auto self = shared_from_this();
    const auto uids = selectedUIDs();
    if (!uids.empty())
        co_await bulkRemove(m_emailService.bulkMoveEmails(uids, fromFolder, toFolder), fromFolder, uids);
}

QCoro::Task<> MailboxViewModel::bulkRemove(QCoro::Task<> change, QString folder, std::vector<qint64> uids) {
    const auto self = shared_from_this();
    const Removal removal(*this);
    const bool done = co_await accepted(std::move(change));
    if (!done)
        co_return;
    removeLocally(folder, uids);
    deselectAll(folder);
    if (uids.size() >= backgroundJobSize)
        launch(watchBackgroundJobs(weak_from_this()));
}

QCoro::Task<> MailboxViewModel::bulkMarkRead(QString folder) {
    return bulkSet(folder, u"seen"_s, &EmailSummary::seen, true);
}

QCoro::Task<> MailboxViewModel::bulkMarkUnread(QString folder) {
    return bulkSet(folder, u"seen"_s, &EmailSummary::seen, false);
}

QCoro::Task<> MailboxViewModel::bulkFlag(QString folder, bool value) {
    return bulkSet(folder, u"flagged"_s, &EmailSummary::flagged, value);
}

QCoro::Task<> MailboxViewModel::bulkSet(QString folder, QString name, Flag flag, bool value) {
    const auto self = shared_from_this();
    const auto uids = selectedUIDs();
    if (uids.empty())
        co_return;
    const bool done = co_await accepted(m_emailService.bulkSetFlag(uids, folder, name, value));
    if (!done)
        co_return;
    setLocally(folder, uids, flag, value);
    Q_EMIT FlagChanges::shared().changed(folder, uids, name, value);
}

std::vector<QString> MailboxViewModel::selectedSenders() const {
    std::set<QString> senders;
    for (const auto &email : emails.get())
        if (const auto address = email.senderAddress().toLower();
            selectedEmails->contains(email.uid) && address.contains(u'@'))
            senders.insert(address);
    return {senders.begin(), senders.end()};
}

QCoro::Task<qint64> MailboxViewModel::blockSelected(QString folder, bool byDomain) {
    const auto self = shared_from_this();
    const Removal removal(*this);
    // What was confirmed is deleted, whatever is selected by the time that the rules exist.
    const auto uids = selectedUIDs();
    qint64 added = 0;
    for (const auto &pattern : blockPatterns(selectedSenders(), byDomain)) {
        const bool done = co_await accepted(BlockedService::add(u"sender"_s, pattern));
        added += done ? 1 : 0;
    }
    if (added == 0)
        co_return 0;
    // The rule exists by now, so the rows go either way.
    co_await accepted(m_emailService.bulkDeleteEmails(uids, folder, true, u"Trash"_s));
    removeLocally(folder, uids);
    deselectAll(folder);
    co_return added;
}

QCoro::Task<std::optional<QString>> MailboxViewModel::blockOne(EmailSummary email, QString folder, bool byDomain) {
    const auto self = shared_from_this();
    const Removal removal(*this);
    const auto address = email.senderAddress().toLower();
    const auto pattern = address.contains(u'@') ? blockPattern(address, byDomain) : std::nullopt;
    if (!pattern)
        co_return std::nullopt;
    const bool added = co_await accepted(BlockedService::add(u"sender"_s, *pattern));
    if (!added)
        co_return std::nullopt;
    co_await accepted(m_emailService.deleteEmail(email.uid, folder, true, u"Trash"_s));
    removeLocally(folder, {email.uid});
    if (shows(folder))
        deselect({email.uid});
    co_return pattern;
}

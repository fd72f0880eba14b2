#include "mail/SpamScan.h"

#include "ai/AIService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr std::size_t unreadLimit = 20;

std::vector<AISpamEmail> submission(const std::vector<EmailSummary> &candidates) {
    std::vector<AISpamEmail> emails;
    for (const auto &email : candidates)
        emails.push_back({email.subject.value_or(u""_s), email.from.value_or(u""_s), std::nullopt});
    return emails;
}

bool isSpam(const AISpamScore &score, std::size_t candidateCount) {
    return score.spam_score >= spamScoreThreshold && score.index >= 0 && score.index < qint64(candidateCount);
}

/// In the order of the scores, each message once.
std::vector<qint64> spamUIDs(const std::vector<EmailSummary> &candidates, const std::vector<AISpamScore> &scores) {
    std::vector<qint64> uids;
    for (const auto &score : scores) {
        if (!isSpam(score, candidates.size()))
            continue;
        const auto uid = candidates[std::size_t(score.index)].uid;
        if (std::find(uids.begin(), uids.end(), uid) == uids.end())
            uids.push_back(uid);
    }
    return uids;
}

/// The messages that did move.
QCoro::Task<std::set<qint64>> moveOneByOne(std::vector<qint64> uids, QString folder, QString junkFolder) {
    std::set<qint64> moved;
    for (const auto uid : uids) {
        try {
            co_await EmailService::moveEmail(uid, folder, junkFolder);
            moved.insert(uid);
        } catch (const std::exception &) {
            // Its row stays where it is.
        }
    }
    co_return std::move(moved);
}

} // namespace

std::vector<EmailSummary> spamCandidates(const std::vector<EmailSummary> &emails, const std::set<qint64> &selected) {
    std::vector<EmailSummary> candidates;
    for (const auto &email : emails) {
        const bool isWanted = selected.empty() ? !email.seen.value_or(false) : selected.contains(email.uid);
        if (isWanted && (!selected.empty() || candidates.size() < unreadLimit))
            candidates.push_back(email);
    }
    return candidates;
}

QCoro::Task<ToastMessage> scanForSpam(std::shared_ptr<MailboxViewModel> list, QString folder, QString junkFolder) {
    const auto candidates = spamCandidates(list->emails, list->selectedEmails);
    if (candidates.empty())
        co_return ToastMessage(u"No emails to check"_s, ToastType::info);
    std::vector<AISpamScore> scores;
    QString failure;
    try {
        const AIService service;
        const auto emails = submission(candidates);
        const auto judged = co_await service.spamCheck(emails);
        scores = judged;
    } catch (const std::exception &) {
        failure = u"Spam check failed: "_s + errorText(std::current_exception());
    }
    if (!failure.isNull())
        co_return ToastMessage(failure, ToastType::error);
    const auto spam = spamUIDs(candidates, scores);
    if (spam.empty())
        co_return ToastMessage(u"No spam detected in %1 emails"_s.arg(candidates.size()), ToastType::success);
    const auto moved = co_await moveOneByOne(spam, folder, junkFolder);
    if (list->loadedFolder.get() == folder)
        list->removeRows(moved);
    co_return ToastMessage(u"Moved %1 spam email(s) to Spam folder"_s.arg(moved.size()), ToastType::warning);
}

#include "ai/AIService.h"
#include "mail/EmailDetailState.h"
#include "mail/FlagChanges.h"
#include "platform/Tasks.h"
#include "rules/BlockedService.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

const QString seen = u"seen"_s;
const QString flagged = u"flagged"_s;
const QString moveFailure = u"Could not move this message. Please try again."_s;

/// The last piece of an address between its "@"s; empty when there is none.
QString lastPiece(const QString &address) {
    const auto pieces = address.split(u'@', Qt::SkipEmptyParts);
    return pieces.isEmpty() ? QString() : pieces.last();
}

/// Null for a flag that no screen shows.
std::optional<bool> EmailDetail::*flagNamed(const QString &name) {
    if (name == seen)
        return &EmailDetail::seen;
    return name == flagged ? &EmailDetail::flagged : nullptr;
}

AISpamEmail spamCandidate(const EmailDetail &email) {
    AISpamEmail candidate;
    candidate.subject = email.subject.value_or(QString());
    if (email.from && !email.from->empty())
        candidate.from = email.from->front().headerText();
    candidate.body = email.body_text ? email.body_text : email.body_html;
    return candidate;
}

QString percentage(double score) {
    return QString::asprintf("%.0f%%", score * 100);
}

} // namespace

void EmailDetailState::perform(MacMailAction action) {
    if (content() != Content::message)
        return;
    switch (action) {
    case MacMailAction::archive:
    case MacMailAction::delete_:
    case MacMailAction::junk:
        return launch(move(moveTarget(action)));
    case MacMailAction::toggleRead:
        return launch(toggleFlag(seen, &EmailDetail::seen));
    case MacMailAction::flag:
        return launch(toggleFlag(flagged, &EmailDetail::flagged));
    case MacMailAction::block:
        showBlockConfirmation = true;
        return;
    case MacMailAction::reply:
    case MacMailAction::replyAll:
        return reply(action == MacMailAction::replyAll);
    case MacMailAction::forward:
        return forward();
    case MacMailAction::source:
        return launch(loadSource());
    case MacMailAction::saveAttachments:
        if (saveAllAttachments)
            saveAllAttachments();
        return;
    case MacMailAction::refresh:
    case MacMailAction::search:
        return;
    }
}

bool EmailDetailState::isSeen() const {
    return viewModel->email.get() && viewModel->email.get()->seen.value_or(false);
}

bool EmailDetailState::isFlagged() const {
    return viewModel->email.get() && viewModel->email.get()->flagged.value_or(false);
}

void EmailDetailState::reply(bool toAll) {
    m_appState->composeReplyTo = *viewModel->email.get();
    m_appState->composeReplyAll = toAll;
    m_appState->presentCompose();
}

void EmailDetailState::forward() {
    m_appState->composeForward = *viewModel->email.get();
    m_appState->presentCompose();
}

QCoro::Task<> EmailDetailState::toggleFlag(QString name, std::optional<bool> EmailDetail::*flag) {
    const auto self = shared_from_this();
    const auto shown = *reference.get();
    const bool wanted = !((*viewModel->email.get()).*flag).value_or(false);
    try {
        co_await EmailService::setFlag(shown.uid, shown.folder, name, wanted);
    } catch (const std::exception &) {
        co_return;
    }
    // This screen hears of it like any other that shows the message.
    Q_EMIT FlagChanges::shared().changed(shown.folder, {shown.uid}, name, wanted);
}

void EmailDetailState::takeFlag(const QString &folder, const std::vector<qint64> &uids, const QString &name,
                                bool value) {
    const auto flag = flagNamed(name);
    if (!flag || content() != Content::message)
        return;
    const auto &shown = *reference.get();
    if (shown.folder != folder || !std::ranges::count(uids, shown.uid))
        return;
    viewModel->email.modify([=](std::optional<EmailDetail> &email) { (*email).*flag = value; });
}

QString EmailDetailState::moveTarget(MacMailAction action) const {
    switch (action) {
    case MacMailAction::junk: {
        const auto junk = m_appState->junkFolderPath();
        return reference.get()->folder == junk ? u"INBOX"_s : junk;
    }
    case MacMailAction::archive:
        return m_appState->archiveFolderPath();
    default:
        return m_appState->trashFolderPath();
    }
}

QCoro::Task<> EmailDetailState::move(QString target) {
    const auto self = shared_from_this();
    const auto shown = *reference.get();
    try {
        co_await EmailService::moveEmail(shown.uid, shown.folder, target);
    } catch (const std::exception &) {
        fail(moveFailure);
        co_return;
    }
    m_appState->emailsChangedInFolder = shown.folder;
    if (reference.get() != shown)
        co_return;
    messageMoved = true;
    viewModel->email = std::nullopt;
}

void EmailDetailState::fail(const QString &words) {
    spamToast = ToastMessage(words, ToastType::error);
}

QString EmailDetailState::blockedAddress() const {
    return senderAddress().toLower();
}

void EmailDetailState::block(bool byDomain) {
    if (content() == Content::message)
        launch(blockSender(byDomain));
}

QCoro::Task<> EmailDetailState::blockSender(bool byDomain) {
    const auto self = shared_from_this();
    const auto address = blockedAddress();
    if (!address.contains(u'@') || (byDomain && lastPiece(address).isEmpty()))
        co_return;
    const auto shown = *reference.get();
    const auto pattern = byDomain ? u"*@"_s + lastPiece(address) : address;
    try {
        co_await BlockedService::add(u"sender"_s, pattern);
    } catch (const std::exception &) {
        fail(u"Could not block: "_s + errorText(std::current_exception()));
        co_return;
    }
    try {
        co_await EmailService::deleteEmail(shown.uid, shown.folder, true, u"Trash"_s);
    } catch (const std::exception &) {
        // The rule exists by now, and takes care of what comes next.
    }
    m_appState->emailsChangedInFolder = shown.folder;
    if (reference.get() == shown)
        Q_EMIT dismissRequested();
}

void EmailDetailState::checkSpam() {
    if (content() == Content::message)
        launch(scoreSpam());
}

QCoro::Task<> EmailDetailState::scoreSpam() {
    const auto self = shared_from_this();
    isCheckingSpam = true;
    const auto shown = *reference.get();
    const std::vector<AISpamEmail> candidates{spamCandidate(*viewModel->email.get())};
    const AIService service;
    std::optional<double> score;
    try {
        const auto scores = co_await service.spamCheck(candidates);
        if (!scores.empty())
            score = scores.front().spam_score;
    } catch (const std::exception &) {
        fail(u"Spam check failed: "_s + errorText(std::current_exception()));
    }
    if (score)
        co_await judge(shown, *score);
    isCheckingSpam = false;
}

QCoro::Task<> EmailDetailState::judge(EmailWindowRef checked, double score) {
    const auto self = shared_from_this();
    if (score < spamScoreThreshold) {
        spamToast = ToastMessage(u"Not spam (score: %1)"_s.arg(percentage(score)), ToastType::success);
        co_return;
    }
    const auto junk = m_appState->junkFolderPath();
    try {
        co_await EmailService::moveEmail(checked.uid, checked.folder, junk);
        spamToast =
            ToastMessage(u"Spam detected (score: %1) — moved to Spam"_s.arg(percentage(score)), ToastType::warning);
    } catch (const std::exception &) {
        fail(moveFailure);
    }
}

QCoro::Task<> EmailDetailState::loadSource() {
    const auto self = shared_from_this();
    const auto shown = *reference.get();
    co_await viewModel->loadSource(shown.uid, shown.folder);
    if (reference.get() == shown)
        showSourceSheet = true;
}

MenuSection EmailDetailState::moreEntries() {
    if (content() != Content::message)
        return {};
    const auto self = shared_from_this();
    const auto toggleRead = [self] { self->perform(MacMailAction::toggleRead); };
    MenuSection entries;
    entries.push_back(isSeen() ? MenuEntry{u"Mark as Unread"_s, u"envelope.badge"_s, toggleRead}
                               : MenuEntry{u"Mark as Read"_s, u"envelope.open"_s, toggleRead});
    if (isAIAvailable(m_appState->currentUser))
        entries.push_back({u"Check Spam (AI)"_s, u"sparkles"_s, [self] { self->checkSpam(); }});
    const auto address = blockedAddress();
    if (address.contains(u'@'))
        entries.push_back({u"Block "_s + address, u"nosign"_s, [self] { self->block(false); }, true});
    if (address.contains(u'@') && !lastPiece(address).isEmpty())
        entries.push_back(
            {u"Block *@"_s + lastPiece(address), u"at.badge.minus"_s, [self] { self->block(true); }, true});
    entries.push_back({u"View Source"_s, u"doc.text"_s, [self] { self->perform(MacMailAction::source); }});
    return entries;
}

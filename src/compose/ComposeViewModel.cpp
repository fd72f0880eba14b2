#include "compose/ComposeViewModel.h"

#include "compose/ComposeHTML.h"
#include "net/APIClient.h"

#include <QSet>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

std::optional<QString> unlessEmpty(const QString &text) {
    return text.isEmpty() ? std::nullopt : std::optional(text);
}

std::vector<EmailAddress> recipients(const EmailDetail &email) {
    auto all = email.to.value_or(std::vector<EmailAddress>());
    const auto copies = email.cc.value_or(std::vector<EmailAddress>());
    all.insert(all.end(), copies.begin(), copies.end());
    return all;
}

ForwardedAttachment carried(const EmailAttachment &attachment, const EmailDetail &email) {
    return {.filename = attachment.filename.value_or(u"attachment"_s),
            .size = attachment.size.value_or(0),
            .contentType = attachment.mimeType(),
            .ref = {*email.folder, email.uid, attachment.partQueryValue()}};
}

template <typename Attachment> void remove(Published<std::vector<Attachment>> &list, const QUuid &id) {
    list.modify([&](std::vector<Attachment> &items) {
        std::erase_if(items, [&](const Attachment &item) { return item.id == id; });
    });
}

} // namespace

void ComposeViewModel::prepareReply(const EmailDetail &email, bool replyAll) {
    to = email.from && !email.from->empty() ? email.from->front().plainAddress() : QString();
    subject = u"Re: "_s + email.subject.value_or(QString());
    if (replyAll) {
        cc = otherRecipients(email);
        showCc = !cc->isEmpty();
    }
    body = replyQuotation(email);
}

QString ComposeViewModel::otherRecipients(const EmailDetail &email) const {
    // Own addresses, those that are in already, and the empty one.
    QSet<QString> unwanted{fromAddress->toLower(), to->toLower(), QString()};
    for (const auto &own : fromAddresses.get())
        unwanted.insert(own.toLower());
    QStringList kept;
    for (const auto &recipient : recipients(email)) {
        const auto address = recipient.plainAddress();
        if (unwanted.contains(address.toLower()))
            continue;
        unwanted.insert(address.toLower());
        kept.append(address);
    }
    return kept.join(u", "_s);
}

void ComposeViewModel::prepareForward(const EmailDetail &email) {
    subject = u"Fwd: "_s + email.subject.value_or(QString());
    body = forwardQuotation(email);
}

void ComposeViewModel::populateForwardedAttachments(const EmailDetail &email) {
    if (!email.folder || !email.attachments || email.attachments->empty())
        return;
    std::vector<ForwardedAttachment> all;
    for (const auto &attachment : *email.attachments)
        if (!attachment.isInlineImage())
            all.push_back(carried(attachment, email));
    forwardedAttachments = all;
}

QCoro::Task<> ComposeViewModel::loadFromAddresses() {
    const auto self = shared_from_this();
    std::vector<QString> addresses;
    try {
        const auto response = co_await APIClient::shared().get<FromResp>(u"api/from-addresses"_s);
        for (const auto &entry : response.addresses)
            addresses.push_back(entry.address);
    } catch (const std::exception &) {
        // The server chooses the sender.
        co_return;
    }
    fromAddresses = addresses;
    if (fromAddress->isEmpty() && !addresses.empty())
        fromAddress = addresses.front();
}

qint64 ComposeViewModel::attachmentsSize() const {
    return std::accumulate(attachments->begin(), attachments->end(), qint64(0),
                           [](qint64 sum, const ComposeAttachment &file) { return sum + file.data.size(); });
}

void ComposeViewModel::addAttachment(const QString &filename, const QByteArray &data, const QString &contentType) {
    const auto total =
        std::accumulate(forwardedAttachments->begin(), forwardedAttachments->end(), attachmentsSize() + data.size(),
                        [](qint64 sum, const ForwardedAttachment &file) { return sum + file.size; });
    if (total > attachmentsLimit) {
        errorMessage = u"Attachments must total 25 MB or less."_s;
        return;
    }
    attachments.modify([&](std::vector<ComposeAttachment> &files) {
        files.push_back({.filename = filename, .data = data, .contentType = contentType});
    });
}

void ComposeViewModel::removeAttachment(const QUuid &id) {
    remove(attachments, id);
}

void ComposeViewModel::removeForwardedAttachment(const QUuid &id) {
    remove(forwardedAttachments, id);
}

std::optional<QString> ComposeViewModel::missing() const {
    if (to->isEmpty())
        return u"Please enter a recipient"_s;
    if (subject->isEmpty())
        return u"Please enter a subject"_s;
    return std::nullopt;
}

EmailSendRequest ComposeViewModel::request() const {
    std::vector<AttachmentData> files;
    for (const auto &file : forwardedAttachments.get())
        files.push_back({.filename = file.filename, .contentType = file.contentType, .ref = file.ref});
    for (const auto &file : attachments.get())
        files.push_back({.filename = file.filename, .content = file.data, .contentType = file.contentType});
    EmailSendRequest request{.to = to, .subject = subject, .body = body->isEmpty() ? u"<p></p>"_s : body.get()};
    request.cc = unlessEmpty(cc);
    request.bcc = unlessEmpty(bcc);
    request.from_email = unlessEmpty(fromAddress);
    if (!files.empty())
        request.attachments = std::move(files);
    return request;
}

QCoro::Task<bool> ComposeViewModel::send() {
    const auto self = shared_from_this();
    if (isSending)
        co_return false;
    if (const auto complaint = missing()) {
        errorMessage = complaint;
        co_return false;
    }
    isSending = true;
    errorMessage = std::nullopt;
    bool isSent = false;
    try {
        auto message = request();
        co_await APIClient::shared().postVoid(u"api/emails/send"_s, std::move(message));
        isSent = true;
    } catch (const std::exception &) {
        errorMessage = errorText(std::current_exception());
    }
    isSending = false;
    co_return isSent;
}

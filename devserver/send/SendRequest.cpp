#include "send/SendRequest.h"

#include "mime/TextDecoding.h"
#include "send/AddressList.h"
#include "send/AttachmentReader.h"

#include <algorithm>

namespace {

/// With the images that stand in it as data URLs.
constexpr std::size_t largestPage = 32 * 1024 * 1024;

MessageAddress readSender(const APIRequest &request, AccountStore &accounts) {
    const auto &account = request.account();
    const auto record = accountRecord(account);
    const auto own = accounts.addressesOf(account);
    const auto wish = request.bodyOptionalText("from_email").value_or("");
    const auto address = wish.empty() ? account.email : parseMailAddress(wish);
    const auto isSame = [&](const std::string &other) { return foldCase(other) == foldCase(address); };
    if (record["allow_custom_from"] != true && std::none_of(own.begin(), own.end(), isSame))
        throw APIError(403, "Your account cannot send mail from " + address);
    const auto name = request.bodyOptionalText("from_display_name").value_or(record["display_name"]);
    return {singleLine(name), address};
}

std::vector<MessageAddress> readAddresses(const APIRequest &request, const std::string &key) {
    return parseAddressList(request.bodyOptionalText(key).value_or(""));
}

std::string readPage(const APIRequest &request) {
    auto html = request.bodyText("body");
    if (html.size() > largestPage)
        throw APIError(413, "The text with its images is larger than 32 MB.");
    return html;
}

} // namespace

OutgoingMessage readSendRequest(const APIRequest &request, AccountStore &accounts, Mailbox &mailbox) {
    OutgoingMessage message;
    message.from = readSender(request, accounts);
    message.to = parseAddressList(request.bodyText("to"));
    message.cc = readAddresses(request, "cc");
    message.bcc = readAddresses(request, "bcc");
    message.replyTo = readAddresses(request, "reply_to");
    if (message.to.empty() && message.cc.empty() && message.bcc.empty())
        throw APIError(400, "The message has no recipient");
    message.subject = request.bodyText("subject");
    message.html = readPage(request);
    if (const auto found = request.body.find("attachments"); found != request.body.end() && !found->is_null())
        message.files = AttachmentReader(mailbox).read(*found);
    return message;
}

#include "mime/MessageHeaders.h"

#include "mime/TextDecoding.h"

namespace {

using Text = std::unique_ptr<gchar, decltype(&g_free)>;

std::string clean(const char *text) {
    return singleLine(validUTF8(text ? text : ""));
}

/// The header's own bytes, with encoded words decoded.
std::string rawHeader(GMimeMessage *message, const char *name) {
    GMimeHeader *header = g_mime_header_list_get_header(g_mime_object_get_header_list(GMIME_OBJECT(message)), name);
    const char *raw = header ? g_mime_header_get_raw_value(header) : nullptr;
    if (!raw)
        return {};
    const auto bytes = decodeText(raw, "");
    return clean(Text(g_mime_utils_header_decode_text(nullptr, bytes.c_str()), g_free).get());
}

void addAddresses(InternetAddressList *list, std::vector<MessageAddress> &addresses) {
    for (int i = 0; list && i < internet_address_list_length(list); ++i) {
        InternetAddress *address = internet_address_list_get_address(list, i);
        if (INTERNET_ADDRESS_IS_GROUP(address)) {
            addAddresses(internet_address_group_get_members(INTERNET_ADDRESS_GROUP(address)), addresses);
            continue;
        }
        const char *mailbox = internet_address_mailbox_get_addr(INTERNET_ADDRESS_MAILBOX(address));
        addresses.push_back({clean(internet_address_get_name(address)), clean(mailbox)});
    }
}

std::string addressText(InternetAddressList *list, const std::string &raw) {
    if (!list || internet_address_list_length(list) == 0)
        return raw;
    const Text text(internet_address_list_to_string(list, nullptr, FALSE), g_free);
    const auto result = clean(text.get());
    return result.empty() ? raw : result;
}

struct AddressHeader {
    std::string text;
    std::vector<MessageAddress> list;
};

AddressHeader readAddresses(GMimeMessage *message, GMimeAddressType type, const char *name) {
    InternetAddressList *list = g_mime_message_get_addresses(message, type);
    const auto raw = rawHeader(message, name);
    AddressHeader header{addressText(list, raw), {}};
    addAddresses(list, header.list);
    if (header.list.empty() && !raw.empty())
        header.list.push_back({"", raw});
    return header;
}

void readDate(GMimeMessage *message, double fallbackTime, MessageHeaders &headers) {
    GDateTime *told = g_mime_message_get_date(message);
    // Years outside of what the date form can hold count as unreadable.
    const bool usable = told && g_date_time_get_year(told) >= 1970 && g_date_time_get_year(told) <= 9999;
    GDateTime *date = usable ? g_date_time_ref(told) : g_date_time_new_from_unix_utc(static_cast<gint64>(fallbackTime));
    headers.timestamp = static_cast<double>(g_date_time_to_unix(date));
    headers.date = clean(Text(g_mime_utils_header_format_date(date), g_free).get());
    g_date_time_unref(date);
}

} // namespace

MessageHeaders readHeaders(const MIMEMessage &message, double fallbackTime) {
    MessageHeaders headers;
    headers.subject = rawHeader(message.get(), "Subject");
    auto from = readAddresses(message.get(), GMIME_ADDRESS_TYPE_FROM, "From");
    auto to = readAddresses(message.get(), GMIME_ADDRESS_TYPE_TO, "To");
    auto cc = readAddresses(message.get(), GMIME_ADDRESS_TYPE_CC, "Cc");
    headers.from = std::move(from.text);
    headers.fromList = std::move(from.list);
    headers.to = std::move(to.text);
    headers.toList = std::move(to.list);
    headers.cc = std::move(cc.text);
    headers.ccList = std::move(cc.list);
    headers.messageID = rawHeader(message.get(), "Message-Id");
    headers.inReplyTo = rawHeader(message.get(), "In-Reply-To");
    readDate(message.get(), fallbackTime, headers);
    return headers;
}

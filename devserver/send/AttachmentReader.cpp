#include "send/AttachmentReader.h"

#include "http/APIError.h"

#include <openssl/evp.h>

namespace {

constexpr std::size_t largestTotal = 25 * 1024 * 1024;

template <typename Value> const Value &field(const nlohmann::json &object, const char *key, const char *kind) {
    const auto found = object.find(key);
    const auto *value = found == object.end() ? nullptr : found->template get_ptr<const Value *>();
    if (!value)
        throw APIError(400, "An attachment's " + std::string(key) + " must be " + kind);
    return *value;
}

const std::string &textField(const nlohmann::json &object, const char *key) {
    return field<std::string>(object, key, "a text");
}

std::int64_t integerField(const nlohmann::json &object, const char *key) {
    const auto found = object.find(key);
    if (found == object.end() || !found->is_number_integer())
        throw APIError(400, "An attachment's " + std::string(key) + " must be an integer");
    return found->get<std::int64_t>();
}

bool has(const nlohmann::json &object, const char *key) {
    const auto found = object.find(key);
    return found != object.end() && !found->is_null();
}

/// Strict Base64 of RFC 4648: nothing but its alphabet, padded.
std::string decodeBase64(const std::string &text, const std::string &fileName) {
    const auto padding = text.size() - std::min(text.find('='), text.size());
    const auto *input = reinterpret_cast<const unsigned char *>(text.data());
    std::string bytes(text.size() / 4 * 3, '\0');
    auto *output = reinterpret_cast<unsigned char *>(bytes.data());
    const bool isWhole = text.size() % 4 == 0 && padding <= 2 && text.find_first_of(" \t\r\n") == std::string::npos;
    if (!isWhole || EVP_DecodeBlock(output, input, static_cast<int>(text.size())) != static_cast<int>(bytes.size()))
        throw APIError(400, "The data of \"" + fileName + "\" is no Base64");
    bytes.resize(bytes.size() - padding);
    return bytes;
}

} // namespace

AttachmentReader::AttachmentReader(Mailbox &mailbox)
    : m_mailbox(mailbox) {}

std::vector<OutgoingFile> AttachmentReader::read(const nlohmann::json &attachments) {
    if (!attachments.is_array())
        throw APIError(400, "attachments must be a list");
    std::vector<OutgoingFile> files;
    std::size_t total = 0;
    for (const auto &attachment : attachments) {
        files.push_back(readOne(attachment));
        total += files.back().bytes.size();
        if (total > largestTotal)
            throw APIError(413, "Attachments must total 25 MB or less.");
    }
    return files;
}

OutgoingFile AttachmentReader::readOne(const nlohmann::json &attachment) {
    const auto &name = textField(attachment, "name");
    const auto &type = textField(attachment, "type");
    if (!has(attachment, "ref"))
        return {name, type, decodeBase64(textField(attachment, "data"), name)};
    try {
        return {name, type, referenced(attachment["ref"])};
    } catch (const APIError &error) {
        throw APIError(error.status(), "\"" + name + "\" cannot be attached: " + error.what());
    }
}

std::string AttachmentReader::referenced(const nlohmann::json &reference) {
    const auto &part = textField(reference, "part");
    for (const auto &leaf : leavesOf(message(textField(reference, "folder"), integerField(reference, "uid")))) {
        if (leaf.number == part)
            return leaf.content();
    }
    throw APIError(404, "The message has no part " + part);
}

const MIMEMessage &AttachmentReader::message(const std::string &folder, std::int64_t uid) {
    auto &known = m_messages[{folder, uid}];
    if (!known)
        known = parseMessage(m_mailbox.bytes(folder, uid));
    return known;
}

#include "demo/mime/MessageBuilder.h"

#include "mime/HeaderEncoding.h"

MessageBuilder &MessageBuilder::charset(std::string charset) {
    m_charset = std::move(charset);
    return *this;
}

MessageBuilder &MessageBuilder::from(const DemoPerson &person) {
    return people("From", {person});
}

MessageBuilder &MessageBuilder::to(const std::vector<DemoPerson> &recipients) {
    return people("To", recipients);
}

MessageBuilder &MessageBuilder::cc(const std::vector<DemoPerson> &recipients) {
    return people("Cc", recipients);
}

MessageBuilder &MessageBuilder::subject(std::string_view subject) {
    return header("Subject", HeaderEncoding::text(subject, m_charset));
}

MessageBuilder &MessageBuilder::date(Time time, int utcOffset) {
    return header("Date", HeaderEncoding::date(time, utcOffset));
}

MessageBuilder &MessageBuilder::messageID(const std::string &id) {
    return header("Message-ID", id);
}

MessageBuilder &MessageBuilder::inReplyTo(const std::vector<std::string> &ancestors) {
    if (ancestors.empty())
        return *this;
    std::string references;
    for (const std::string &id : ancestors)
        references += (references.empty() ? "" : "\n ") + id;
    return header("In-Reply-To", ancestors.back()).header("References", references);
}

MessageBuilder &MessageBuilder::header(const std::string &name, const std::string &value) {
    m_message.headers.emplace_back(name, value);
    return *this;
}

MessageBuilder &MessageBuilder::body(const DemoPart &part) {
    header("MIME-Version", "1.0");
    m_message.headers.insert(m_message.headers.end(), part.headers.begin(), part.headers.end());
    m_message.body = part.body;
    return *this;
}

std::string MessageBuilder::build() const {
    return m_message.bytes();
}

MessageBuilder &MessageBuilder::people(const std::string &name, const std::vector<DemoPerson> &recipients) {
    std::string list;
    for (const DemoPerson &person : recipients)
        list += (list.empty() ? "" : ",\n ") + HeaderEncoding::address(person.name, person.address, m_charset);
    return recipients.empty() ? *this : header(name, list);
}

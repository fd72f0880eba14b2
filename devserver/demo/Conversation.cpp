#include "demo/Conversation.h"

#include <algorithm>

#include "demo/MailText.h"
#include "mime/HeaderEncoding.h"
#include "demo/mime/MessageBuilder.h"
#include "mime/TransferEncoding.h"

namespace {
struct WrittenMessage {
    DemoPerson from;
    std::string subject, date;
    std::string id = {}, text = {}, html = {};
    /// What a reply quotes: the same without the signature.
    std::string quotableText = {}, quotableHTML = {};
};

std::string originalHeaders(const WrittenMessage &earlier) {
    return "From: " + earlier.from.name + " <" + earlier.from.address + ">\nSent: " + earlier.date +
           "\nSubject: " + earlier.subject + "\n\n";
}

std::string attribution(const WrittenMessage &earlier) {
    return "On " + earlier.date.substr(0, earlier.date.size() - 9) + ", " + earlier.from.name + " wrote:\n";
}

std::string signatureText(const DemoPerson &person) {
    return person.signature.empty() ? "" : "\n-- \n" + person.signature + "\n";
}

std::string signatureHTML(const DemoPerson &person) {
    const std::string lines = MailText::replaced(MailText::escapedHTML(person.signature), "\n", "<br>");
    return lines.empty() ? "" : "<div style=\"color:#6b7480;font-size:13px;margin-top:18px\">" + lines + "</div>\n";
}

std::string quotedText(WritingStyle style, const WrittenMessage &earlier) {
    if (style == WritingStyle::Office)
        return "\n-----Original Message-----\n" + originalHeaders(earlier) + earlier.quotableText;
    return "\n" + attribution(earlier) + MailText::quoted(earlier.quotableText);
}

std::string quotedHTML(WritingStyle style, const WrittenMessage &earlier) {
    if (style == WritingStyle::Office)
        return "<div style=\"border-top:1px solid #b5c4df;padding-top:6px;margin-top:16px\">\n" +
               MailText::html(originalHeaders(earlier)) + earlier.quotableHTML + "</div>\n";
    return MailText::html(attribution(earlier)) +
           "<blockquote style=\"margin:0 0 0 .8ex;border-left:2px solid #9fb3c8;padding-left:1ex\">\n" +
           earlier.quotableHTML + "</blockquote>\n";
}

bool writesHTML(WritingStyle style) {
    return style == WritingStyle::Rich || style == WritingStyle::Office;
}

DemoPart writtenPart(WritingStyle style, const WrittenMessage &message) {
    if (style == WritingStyle::Flowed)
        return textPart(MailText::flowed(message.text), {.parameters = "; format=flowed"});
    if (!writesHTML(style))
        return textPart(message.text, {.encoding = PartEncoding::EightBit});
    const char *font = style == WritingStyle::Office ? "Calibri,sans-serif" : "sans-serif";
    return multipart("alternative",
                     {textPart(message.text), htmlPart("<html><body><div style=\"font-family:" + std::string(font) +
                                                       "\">\n" + message.html + "</div></body></html>\n")});
}

/// Writes the turns of one conversation in their order.
class ConversationWriter {
public:
    ConversationWriter(Mailbag &bag, const Conversation &conversation)
        : m_bag(bag)
        , m_conversation(conversation) {}

    void write() {
        for (size_t i = 0; i < m_conversation.turns.size(); ++i)
            writeTurn(i);
    }

private:
    void writeTurn(size_t index) {
        const DemoTurn &turn = m_conversation.turns[index];
        WrittenMessage message{turn.from, subject(index),
                               HeaderEncoding::date(m_bag.at(turn.when), turn.from.utcOffset)};
        writeText(message, turn);
        message.id = "<" + TransferEncoding::fingerprint(message.date + message.text) + "@" + turn.from.domain() + ">";
        m_bag.add(folder(turn), flags(index), turn.when, bytes(index, message));
        m_written.push_back(message);
    }

    void writeText(WrittenMessage &message, const DemoTurn &turn) const {
        const WritingStyle style = turn.from.style;
        const std::string quoteText = m_written.empty() ? "" : quotedText(style, m_written.back());
        const std::string quoteHTML = m_written.empty() ? "" : quotedHTML(style, m_written.back());
        message.text = turn.text + signatureText(turn.from) + quoteText;
        message.html = MailText::html(turn.text) + signatureHTML(turn.from) + quoteHTML;
        message.quotableText = turn.text + quoteText;
        message.quotableHTML = MailText::html(turn.text) + quoteHTML;
    }

    std::string bytes(size_t index, const WrittenMessage &message) const {
        const DemoTurn &turn = m_conversation.turns[index];
        std::vector<DemoPerson> recipients = turn.to.empty() ? others(index) : turn.to;
        const std::vector<DemoPerson> copies(recipients.begin() + 1, recipients.end());
        std::vector<DemoPart> parts = {writtenPart(turn.from.style, message)};
        parts.insert(parts.end(), turn.attachments.begin(), turn.attachments.end());
        return MessageBuilder()
            .from(turn.from)
            .to({recipients.front()})
            .cc(copies)
            .subject(message.subject)
            .date(m_bag.at(turn.when), turn.from.utcOffset)
            .messageID(message.id)
            .inReplyTo(ancestors())
            .body(parts.size() == 1 ? parts.front() : multipart("mixed", parts))
            .build();
    }

    std::string subject(size_t index) const {
        const DemoTurn &turn = m_conversation.turns[index];
        const char *reply = turn.from.style == WritingStyle::Office ? "RE: " : "Re: ";
        return (!turn.prefix.empty() ? turn.prefix : index == 0 ? "" : reply) + m_conversation.subject;
    }

    /// The writer of the message before first, then everybody else but the writer.
    std::vector<DemoPerson> others(size_t index) const {
        std::vector<DemoPerson> out = m_conversation.people;
        if (index > 0)
            out.insert(out.begin(), m_conversation.turns[index - 1].from);
        std::vector<DemoPerson> unique;
        for (const DemoPerson &person : out)
            if (!(person == m_conversation.turns[index].from) && std::ranges::find(unique, person) == unique.end())
                unique.push_back(person);
        return unique;
    }

    std::vector<std::string> ancestors() const {
        std::vector<std::string> out;
        for (const WrittenMessage &message : m_written)
            out.push_back(message.id);
        return out;
    }

    std::string folder(const DemoTurn &turn) const {
        if (!turn.folder.empty())
            return turn.folder;
        return turn.from == People::dana ? DemoFolder::sent : m_conversation.folder;
    }

    std::string flags(size_t index) const {
        const auto &turns = m_conversation.turns;
        if (turns[index].flags.find('u') != std::string::npos)
            return MailText::replaced(turns[index].flags, "u", "");
        const bool answered = index + 1 < turns.size() && turns[index + 1].from == People::dana;
        return turns[index].flags + "S" + (answered ? "R" : "");
    }

    Mailbag &m_bag;
    const Conversation &m_conversation;
    std::vector<WrittenMessage> m_written;
};
} // namespace

void addConversation(Mailbag &bag, const Conversation &conversation) {
    ConversationWriter(bag, conversation).write();
}

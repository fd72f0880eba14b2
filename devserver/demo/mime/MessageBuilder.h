#pragma once

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

#include "demo/People.h"
#include "demo/mime/DemoPart.h"

/// Puts one message together, fields in the order in which they are asked for. Each step returns the builder.
class MessageBuilder {
public:
    using Time = std::chrono::system_clock::time_point;

    /// Names and subjects that are not ASCII are encoded in this character set.
    MessageBuilder &charset(std::string charset);
    MessageBuilder &from(const DemoPerson &person);
    MessageBuilder &to(const std::vector<DemoPerson> &people);
    MessageBuilder &cc(const std::vector<DemoPerson> &people);
    MessageBuilder &subject(std::string_view subject);
    MessageBuilder &date(Time time, int utcOffset);
    MessageBuilder &messageID(const std::string &id);
    /// In-Reply-To and References. @param ancestors oldest first; none leaves both out
    MessageBuilder &inReplyTo(const std::vector<std::string> &ancestors);
    /// The value goes to the wire as it stands.
    MessageBuilder &header(const std::string &name, const std::string &value);
    MessageBuilder &body(const DemoPart &part);

    std::string build() const;

private:
    MessageBuilder &people(const std::string &name, const std::vector<DemoPerson> &people);

    std::string m_charset = "UTF-8";
    DemoPart m_message;
};

#include "demo/Notice.h"

#include "mime/TransferEncoding.h"

MessageBuilder startNotice(const Mailbag &bag, const Notice &notice) {
    const std::string identity =
        notice.subject + notice.from.address + std::to_string(notice.when.days * 1440 + notice.when.minutes);
    MessageBuilder builder;
    builder.charset(notice.charset)
        .from(notice.from)
        .to({People::dana})
        .subject(notice.subject)
        .date(bag.at(notice.when), notice.from.utcOffset)
        .messageID("<" + TransferEncoding::fingerprint(identity) + "@" + notice.from.domain() + ">");
    for (const auto &[name, value] : notice.headers)
        builder.header(name, value);
    return builder;
}

void addNotice(Mailbag &bag, const Notice &notice) {
    bag.add(notice.folder, notice.flags, notice.when, startNotice(bag, notice).body(notice.body).build());
}

DemoPart plainAndHTML(const std::string &text, const std::string &html) {
    return multipart("alternative", {textPart(text), htmlPart(html)});
}

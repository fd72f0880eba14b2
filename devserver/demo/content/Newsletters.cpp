#include "demo/content/Newsletters.h"

#include "demo/MailText.h"
#include "demo/content/DemoThemes.h"
#include "demo/mime/MessageBuilder.h"
#include "mime/TransferEncoding.h"

namespace {
std::string plainVersion(const NewsletterIssue &issue) {
    std::string out = issue.headline + "\n\n" + issue.lead + "\n\n";
    for (const NewsletterItem &item : issue.items)
        out += "* " + item.title + (item.label.empty() ? "" : " (" + item.label + ")") + "\n  " + item.text + "\n\n";
    return out;
}

std::string message(const Mailbag &bag, const Newsletter &newsletter, const NewsletterIssue &issue) {
    const std::string host = newsletter.publisher.domain();
    return MessageBuilder()
        .from(newsletter.publisher)
        .to({People::dana})
        .subject(issue.subject)
        .date(bag.at(issue.when), newsletter.publisher.utcOffset)
        .messageID("<" + TransferEncoding::fingerprint(issue.subject + issue.lead) + "@mailer." + host + ">")
        .header("List-Id", "<news." + host + ">")
        .header("List-Unsubscribe", "<https://" + host + "/unsubscribe?u=8f3a2c71>, <mailto:leave@" + host + ">")
        .header("List-Unsubscribe-Post", "List-Unsubscribe=One-Click")
        .header("Precedence", "bulk")
        .body(multipart("alternative", {textPart(plainVersion(issue)), htmlPart(newsletter.page(issue))}))
        .build();
}
} // namespace

void addNewsletters(Mailbag &bag) {
    for (const Newsletter &newsletter : {quayLetter(), bakeryNews(), openDataDigest(), railDeals()})
        for (const NewsletterIssue &issue : newsletter.issues)
            bag.add(issue.folder, issue.flags, issue.when, message(bag, newsletter, issue));
}

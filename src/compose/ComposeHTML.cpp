#include "compose/ComposeHTML.h"

using namespace Qt::StringLiterals;

namespace {

QString quotableBody(const EmailDetail &email) {
    return email.body_html ? *email.body_html : withLineBreaks(email.body_text.value_or(QString()));
}

EmailAddress sender(const EmailDetail &email) {
    return email.from && !email.from->empty() ? email.from->front() : EmailAddress();
}

QString recipientsText(const EmailDetail &email) {
    QStringList texts;
    for (const auto &address : email.to.value_or(std::vector<EmailAddress>()))
        texts.append(address.headerText());
    return texts.join(u", "_s);
}

} // namespace

QString withLineBreaks(QString text) {
    return text.replace(u'\n', "<br>"_L1);
}

QString replyQuotation(const EmailDetail &email) {
    return "<br><br><div style=\"border-left:2px solid #ccc; padding-left:10px; margin-left:5px; color:#666;\">"
           "<p style=\"margin:0 0 8px 0;\">On "_L1 +
           email.date.value_or(QString()) + ", <b>"_L1 + sender(email).displayName() + "</b> wrote:</p>"_L1 +
           quotableBody(email) + "</div>"_L1;
}

QString forwardQuotation(const EmailDetail &email) {
    return "<br><br><div style=\"border-top:1px solid #ccc; padding-top:10px; margin-top:10px;\">"
           "<p style=\"margin:0 0 8px 0; color:#666;\"><b>---------- Forwarded message ----------</b><br>From: "_L1 +
           sender(email).headerText() + "<br>Date: "_L1 + email.date.value_or(QString()) + "<br>Subject: "_L1 +
           email.subject.value_or(QString()) + "<br>To: "_L1 + recipientsText(email) + "</p>"_L1 + quotableBody(email) +
           "</div>"_L1;
}

QString signatureBlock(const QString &signature) {
    if (signature.isEmpty())
        return {};
    const bool isHTML = signature.contains(u'<') && signature.contains(u'>');
    return "<br><div class=\"email-signature\">--<br>"_L1 + (isHTML ? signature : withLineBreaks(signature)) +
           "</div>"_L1;
}

#include "Correspondent.h"

#include "driver/MessageWriter.h"
#include "mail/EmailService.h"

#include <QTextStream>

using namespace Qt::StringLiterals;

QByteArray Correspondence::plan() {
    QByteArray bytes;
    for (int number = 0; number < 300'000; ++number)
        bytes.append(char(number * 7 + number / 256));
    return bytes;
}

QByteArray Correspondence::notes() {
    return "One line\r\nanother\nand the last, without an end: ä";
}

namespace {

/// Ends the program's part in the conversation with the reason why.
struct Disappointment {
    QString reason;
};

void expect(bool isMet, const QString &expectation) {
    if (!isMet)
        throw Disappointment{expectation};
}

QByteArray download(const EmailDetail &email, const QString &filename) {
    for (const auto &attachment : email.attachments.value_or(std::vector<EmailAttachment>())) {
        if (attachment.filename != filename)
            continue;
        std::optional<QByteArray> bytes;
        launch([](std::optional<QByteArray> *result, qint64 uid, EmailAttachment file) -> QCoro::Task<> {
            auto loaded = co_await EmailService::downloadAttachment(uid, u"INBOX"_s, file);
            *result = std::move(loaded);
        }(&bytes, email.uid, attachment));
        AppDriver::waitUntil([&] { return bytes.has_value(); });
        return bytes.value_or(QByteArray());
    }
    return {};
}

void correspond(AppDriver &app) {
    MessageWriter writer(app);
    expect(AppDriver::waitUntil([&] { return app.openMessage(Correspondence::subject); }, 60),
           u"the message arrives"_s);
    const auto email = *app.mainScreen().detailState().viewModel->email.get();
    const auto html = email.body_html.value_or(QString());
    expect(html.contains(MessageWriter::asHTML(Correspondence::words)), u"its text: "_s + html);
    expect(html.contains(u"<b>bold</b>"_s), u"its formatting: "_s + html);
    expect(html.contains(u"data:image/png;base64,"_s), u"its picture: "_s + html);
    expect(download(email, Correspondence::planName) == Correspondence::plan(), u"the bytes of the plan"_s);
    expect(download(email, Correspondence::notesName) == Correspondence::notes(), u"the bytes of the notes"_s);

    auto &detail = app.mainScreen().detailState();
    expect(writer.open([&] { detail.perform(MacMailAction::replyAll); }), u"the reply opens"_s);
    expect(writer.view()->state().viewModel->forwardedAttachments->size() == 2, u"the reply carries the files"_s);
    expect(writer.typeText(Correspondence::answer), u"the answer is typed"_s);
    expect(writer.send(), u"the reply is sent"_s);

    expect(writer.open([&] { detail.perform(MacMailAction::forward); }), u"the forward opens"_s);
    writer.fill(u"To"_s, u"dana@corvanite.example"_s);
    expect(writer.typeText(Correspondence::forwarding), u"the words are typed"_s);
    expect(writer.send(), u"the forward is sent"_s);
}

} // namespace

int runCorrespondent(const QString &serverAddress) {
    AppDriver app(serverAddress);
    try {
        app.signIn(u"ilias"_s, u"corvanite"_s);
        expect(app.waitForList(), u"the list is there"_s);
        QTextStream(stdout) << "ready" << Qt::endl;
        correspond(app);
        return 0;
    } catch (const Disappointment &missing) {
        QTextStream(stderr) << "Not met: " << missing.reason << Qt::endl;
        return 1;
    }
}

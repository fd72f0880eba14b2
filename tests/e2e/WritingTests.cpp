#include "Correspondent.h"
#include "driver/DevServerProcess.h"
#include "driver/MessageWriter.h"
#include "mail/screens/EmailListView.h"

#include <QClipboard>
#include <QFile>
#include <QGuiApplication>
#include <QListView>
#include <QPlainTextEdit>
#include <QProcess>
#include <QPushButton>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

class Writing : public testing::Test {
protected:
    Writing() {
        app.signIn(u"demo"_s, u"corvanite"_s);
        EXPECT_TRUE(app.waitForList());
    }

    void openNewMessage() {
        ASSERT_TRUE(writer.open([&] { app.press(Qt::Key_N, Qt::ControlModifier); }));
    }
    QString makeFile(const QString &name, const QByteArray &bytes) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return file.fileName();
    }
    /// The message of this subject once it has arrived.
    EmailDetail arrived(const QString &subject) {
        EXPECT_TRUE(AppDriver::waitUntil([&] { return app.openMessage(subject); }, 60)) << qPrintable(subject);
        return app.mainScreen().detailState().viewModel->email->value_or(EmailDetail());
    }

    QTemporaryDir folder;
    DevServerProcess server;
    AppDriver app{server.address()};
    MessageWriter writer{app};
};

QStringList attachmentNames(const EmailDetail &email) {
    QStringList names;
    for (const auto &attachment : email.attachments.value_or(std::vector<EmailAttachment>()))
        names.append(attachment.filename.value_or(QString()));
    return names;
}

} // namespace

TEST_F(Writing, ReachesTheOtherWhoAnswersAndForwards) {
    QProcess other;
    other.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    other.start(u"xvfb-run"_s,
                {u"-a"_s, QCoreApplication::applicationFilePath(), u"--correspondent"_s, server.address()});
    ASSERT_TRUE(AppDriver::waitUntil([&] { return other.canReadLine(); }, 60));

    openNewMessage();
    writer.fill(u"To"_s, u"ilias@corvanite.example"_s);
    writer.fill(u"Subject"_s, Correspondence::subject);
    ASSERT_TRUE(writer.typeText(Correspondence::words));
    app.press(Qt::Key_Return);
    writer.pressButton(u"Bold"_s);
    ASSERT_TRUE(writer.typeText(u"bold"_s));
    QImage picture(4, 4, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QGuiApplication::clipboard()->setImage(picture);
    app.press(Qt::Key_V, Qt::ControlModifier);
    ASSERT_TRUE(writer.waitForHTML(u"data:image/png"_s));
    ASSERT_TRUE(writer.dropFiles({makeFile(Correspondence::planName, Correspondence::plan()),
                                  makeFile(Correspondence::notesName, Correspondence::notes())}));
    ASSERT_TRUE(writer.send());

    const auto reply = arrived(u"Re: "_s + Correspondence::subject);
    EXPECT_THAT(reply.body_html->toStdString(), testing::HasSubstr(Correspondence::answer.toStdString()));
    EXPECT_THAT(attachmentNames(reply), testing::IsSupersetOf({Correspondence::planName, Correspondence::notesName}));
    const auto forward = arrived(u"Fwd: "_s + Correspondence::subject);
    EXPECT_THAT(forward.body_html->toStdString(), testing::HasSubstr(Correspondence::forwarding.toStdString()));
    EXPECT_THAT(forward.body_html->toStdString(), testing::HasSubstr("---------- Forwarded message ----------"));
    ASSERT_TRUE(AppDriver::waitUntil([&] { return other.state() == QProcess::NotRunning; }));
    EXPECT_EQ(other.exitCode(), 0);
    ASSERT_TRUE(app.selectFolder(u"Sent"_s));
    EXPECT_TRUE(app.openMessage(Correspondence::subject)) << "no copy in Sent";
}

TEST_F(Writing, HasTheTextWrittenByTheServer) {
    openNewMessage();
    writer.pressButton(u"AI"_s);
    QPlainTextEdit *prompt = nullptr;
    ASSERT_TRUE(AppDriver::waitUntil([&] {
        prompt = app.find<QPlainTextEdit>(u"Describe what you want to write"_s, writer.view());
        return prompt && prompt->isVisible();
    }));
    prompt->setPlainText(u"Decline"_s);
    writer.pressButton(u"Generate"_s);
    EXPECT_TRUE(writer.waitForHTML(u"<br>Unfortunately I have to decline this time.<br>"_s));
    EXPECT_TRUE(AppDriver::waitUntil([&] { return !writer.view()->state().showAIPrompt; }));
}

TEST_F(Writing, KeepsAMessageThatFailedAfterItsScreenHadGone) {
    openNewMessage();
    writer.fill(u"To"_s, u"ilias@corvanite.example"_s);
    writer.fill(u"Subject"_s, u"Kept"_s);
    ASSERT_TRUE(writer.typeText(u"Every word"_s));
    ASSERT_TRUE(writer.dropFiles({makeFile(Correspondence::notesName, Correspondence::notes())}));
    server.kill();
    // Closed before the page has told its text.
    writer.pressButton(u"Send"_s);
    app.state().showCompose = false;
    ASSERT_TRUE(AppDriver::waitUntil([&] { return app.find<QPushButton>(u"Open Message"_s) != nullptr; }));
    EXPECT_NE(app.find(u"“Kept” was not sent: Could not connect to the server."_s), nullptr);

    server.restart();
    ASSERT_TRUE(writer.open([&] { app.click(app.find<QPushButton>(u"Open Message"_s)); }));
    EXPECT_EQ(app.find<QPushButton>(u"Open Message"_s), nullptr);
    const auto &message = *writer.view()->state().viewModel;
    EXPECT_EQ(message.to.get(), u"ilias@corvanite.example"_s);
    EXPECT_EQ(message.attachments->size(), 1U);
    EXPECT_TRUE(message.body->contains(u"Every word"_s));
    // Closing it does not drop it.
    app.state().showCompose = false;
    ASSERT_TRUE(AppDriver::waitUntil([&] { return app.find<QPushButton>(u"Open Message"_s) != nullptr; }));
    ASSERT_TRUE(writer.open([&] { app.click(app.find<QPushButton>(u"Open Message"_s)); }));
    ASSERT_TRUE(writer.send());
    ASSERT_TRUE(app.selectFolder(u"Sent"_s));
    EXPECT_TRUE(AppDriver::waitUntil([&] { return app.openMessage(u"Kept"_s); }));
}

#include "app/MainScreenState.h"
#include "compose/ComposeFixture.h"
#include "mail/MailAnswers.h"

using namespace Qt::StringLiterals;

namespace {

class UnsentMessages : public ComposeFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/folders").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        server.expect("POST", "/api/auth/logout").json("{}").anyNumberOfTimes();
        signIn();
        mainScreen = MainScreenState::make(state);
    }
    void TearDown() override {
        settle();
        mainScreen.reset();
        ComposeFixture::TearDown();
    }

    void write() {
        open();
        address();
        message().cc = u"c@c"_s;
        message().showCc = true;
        message().addAttachment(u"a.txt"_s, "1", u"text/plain"_s);
        screen->editorChanged(u"<p>text</p>"_s);
    }
    /// As the screen does when the person closes it.
    void closeScreen() {
        screen->close();
        state->showCompose = false;
    }
    FakeExchange &beginSend() {
        auto &exchange = expectSend().held();
        launch(screen->send());
        exchange.request();
        return exchange;
    }
    void fail(FakeExchange &exchange) {
        const QByteArray answer = R"({"message": "Full"})";
        exchange.sendHead(507, "application/json", "Content-Length: " + QByteArray::number(answer.size()) + "\r\n");
        exchange.send(answer);
        settle();
    }
    void succeed(FakeExchange &exchange) {
        exchange.sendHead(200, "application/json", "Content-Length: 0\r\n");
        settle();
    }
    void loseOne() {
        write();
        auto &exchange = beginSend();
        closeScreen();
        fail(exchange);
    }
    QStringList notices() const {
        QStringList texts;
        for (const auto &notice : mainScreen->unsentNotices())
            texts.append(notice.text);
        return texts;
    }
    QUuid firstNotice() const { return mainScreen->unsentNotices().at(0).id; }
    QString toastText() const { return mainScreen->toast->value_or(ToastMessage()).message; }

    const QStringList oneNotice{u"“S” was not sent: Full"_s};
    std::shared_ptr<MainScreenState> mainScreen;
};

} // namespace

TEST_F(UnsentMessages, ASendOnScreenClosesItOrSaysWhyNot) {
    write();
    int dismissals = 0;
    QObject::connect(screen.get(), &ComposeState::dismissed, screen.get(), [&] { ++dismissals; });
    fail(beginSend());
    EXPECT_EQ(dismissals, 0);
    EXPECT_EQ(error(), u"Full"_s);
    EXPECT_EQ(toastText(), u""_s);
    succeed(beginSend());
    EXPECT_EQ(dismissals, 1);
    EXPECT_EQ(notices(), QStringList());
    EXPECT_EQ(toastText(), u"Message sent"_s);
}

TEST_F(UnsentMessages, ASuccessAfterTheScreenHasGoneIsToldByAToast) {
    write();
    auto &exchange = beginSend();
    closeScreen();
    screen.reset();
    succeed(exchange);
    EXPECT_EQ(toastText(), u"Message sent"_s);
    EXPECT_EQ(mainScreen->toast->value().type, ToastType::success);
    EXPECT_EQ(notices(), QStringList());
}

TEST_F(UnsentMessages, AFailureAfterTheScreenHasGoneKeepsTheMessage) {
    loseOne();
    screen.reset();
    EXPECT_EQ(notices(), oneNotice);
    mainScreen->openUnsent(firstNotice());
    EXPECT_TRUE(state->showCompose);
    EXPECT_EQ(notices(), QStringList());

    expectContacts().answer(500);
    screen = ComposeState::make(state);
    screen->start();
    settle();
    EXPECT_EQ(screen->initialEditorContent.get(), u"<p>text</p>"_s);
    EXPECT_EQ(message().cc.get(), u"c@c"_s);
    EXPECT_TRUE(message().showCc);
    EXPECT_EQ(error(), u"Full"_s);
    auto &again = expectSend().json("{}");
    await(screen->send());
    EXPECT_EQ(again.request().body, R"({"to":"b@c","subject":"S","body":"<p>text</p>","cc":"c@c","attachments":[)"
                                    R"({"name":"a.txt","data":"MQ==","type":"text/plain"}],"from_email":"me@a"})");
}

TEST_F(UnsentMessages, CanBeDismissed) {
    loseOne();
    mainScreen->dismissUnsent(firstNotice());
    settle();
    EXPECT_EQ(notices(), QStringList());
    EXPECT_FALSE(state->showCompose);
}

TEST_F(UnsentMessages, DoNotPushAsideAMessageThatIsBeingWritten) {
    loseOne();
    open();
    const auto presented = state->composePresentationID.get();
    mainScreen->openUnsent(firstNotice());
    EXPECT_EQ(state->composePresentationID.get(), presented);
    EXPECT_EQ(notices(), oneNotice);
}

TEST_F(UnsentMessages, AMessageThatGivesWayToAnotherIsKeptIfItWasBegun) {
    const std::function<void()> beginnings[]{
        [] {},
        [this] { screen->editorChanged(u"typed"_s); },
        [this] { message().subject = u"S"_s; },
        [this] { screen->pickTemplate({.subject = {}, .body = u"Thanks"_s}); },
        [this] { message().addAttachment(u"a.txt"_s, "1", u"text/plain"_s); },
    };
    for (const auto &beginToWrite : beginnings) {
        state->composeReplyTo = answeredLetter();
        open();
        // The page's own form of what it shows.
        screen->editorChanged(u"<p>Hi</p>"_s);
        beginToWrite();
        state->presentCompose();
        screen->close();
    }
    EXPECT_EQ(notices(), QStringList({u"“Re: Lunch” was not sent: Another message was begun."_s,
                                      u"“S” was not sent: Another message was begun."_s,
                                      u"“Re: Lunch” was not sent: Another message was begun."_s,
                                      u"“Re: Lunch” was not sent: Another message was begun."_s}));
    open();
    screen->editorChanged(u"typed"_s);
    closeScreen();
    EXPECT_EQ(notices().size(), 4) << "given up on purpose";
}

TEST_F(UnsentMessages, OneThatIsClosedAgainWithoutAnErrorSaysSo) {
    open();
    screen->editorChanged(u"typed"_s);
    message().subject = u"S"_s;
    state->presentCompose();
    closeScreen();
    EXPECT_EQ(notices(), QStringList(u"“S” was not sent: Another message was begun."_s));
    mainScreen->openUnsent(firstNotice());
    screen = ComposeState::make(state);
    closeScreen();
    EXPECT_EQ(notices(), QStringList(u"“S” was not sent: It was closed before it was sent."_s));
}

TEST_F(UnsentMessages, AreShownToTheirOwnAccountOnly) {
    loseOne();
    await(state->signOut());
    EXPECT_EQ(notices(), QStringList());
    beginSession(R"({"_id": "u2", "username": "other"})");
    EXPECT_EQ(notices(), QStringList());
    await(state->signOut());
    signIn();
    EXPECT_EQ(notices(), oneNotice);
}

TEST_F(UnsentMessages, AnOutcomeAfterSigningOutIsForTheAccountThatSent) {
    for (const bool isSent : {true, false}) {
        signIn();
        write();
        auto &exchange = beginSend();
        closeScreen();
        await(state->signOut());
        state->didSignIn({._id = u"u2"_s});
        isSent ? succeed(exchange) : fail(exchange);
        EXPECT_EQ(notices(), QStringList());
        EXPECT_EQ(toastText(), u""_s);
    }
    signIn();
    EXPECT_EQ(notices(), oneNotice);
}

TEST_F(UnsentMessages, SigningOutDropsWhatWasAboutToBeWritten) {
    state->composeReplyTo = answeredLetter();
    state->sharedBody = u"private"_s;
    state->mailtoSubject = u"private"_s;
    state->sharedAttachments = {{u"a"_s, "1", u"t"_s}};
    state->presentCompose();
    await(state->signOut());
    EXPECT_FALSE(state->showCompose);
    EXPECT_EQ(state->composeReplyTo.get(), std::nullopt);
    EXPECT_TRUE(state->sharedAttachments->empty());
    EXPECT_EQ(state->sharedBody.get() + state->mailtoSubject.get(), u""_s);
}

TEST_F(UnsentMessages, ASecondSendHasNoOutcome) {
    write();
    auto &exchange = beginSend();
    launch(screen->send());
    closeScreen();
    launch(screen->send());
    fail(exchange);
    EXPECT_EQ(notices(), oneNotice);
}

TEST_F(UnsentMessages, ASendCountsUntilItsOutcomeIsKnown) {
    auto &outcomes = state->sendOutcomes;
    std::vector<std::pair<bool, std::size_t>> ends;
    QObject::connect(&outcomes, &SendOutcomes::sendEnded, &outcomes,
                     [&](bool isSent) { ends.emplace_back(isSent, outcomes.unsent(state->account()).size()); });
    for (const bool isSent : {true, false}) {
        write();
        auto &exchange = beginSend();
        EXPECT_TRUE(outcomes.isSending());
        closeScreen();
        screen.reset();
        isSent ? succeed(exchange) : fail(exchange);
        EXPECT_FALSE(outcomes.isSending());
    }
    EXPECT_EQ(ends, (std::vector<std::pair<bool, std::size_t>>{{true, 0}, {false, 1}}));
}

TEST_F(UnsentMessages, NothingIsSentFromAScreenThatHasGone) {
    write();
    closeScreen();
    await(screen->send());
    server.assertSilence();
    EXPECT_EQ(notices(), QStringList());
}

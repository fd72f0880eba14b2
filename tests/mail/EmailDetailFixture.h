#pragma once

#include "app/AppStateFixture.h"
#include "mail/EmailDetailState.h"
#include "mail/MailAnswers.h"

/// The state of a message screen over a scripted server.
class EmailDetailStateTest : public CoreTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        screen = EmailDetailState::make(state);
    }
    void TearDown() override {
        settle();
        screen.reset();
        state.reset();
        CoreTest::TearDown();
    }

    FakeExchange &expectRead(int uid) {
        return server.expect("GET", "/api/emails/read/" + QByteArray::number(uid) + "?folder=INBOX");
    }
    void show(qint64 uid) { screen->show(EmailWindowRef{uid, QStringLiteral("INBOX")}); }
    void open(const QByteArray &json) {
        expectRead(7).json(json);
        show(7);
        settle();
    }

    std::shared_ptr<EmailDetailState> screen;
};

#pragma once

#include "app/AppStateFixture.h"
#include "mail/MailAnswers.h"
#include "mail/screens/EmailDetailView.h"
#include "mail/screens/PlainTextView.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

/// A message on screen, over a scripted server.
class MessageScreen : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        server
            .expect("GET",
                    "/faviconV2?client=SOCIAL&type=FAVICON&fallback_opts=TYPE,SIZE,URL&url=https://x.org&size=64")
            .answer(404)
            .anyNumberOfTimes();
        screen = EmailDetailState::make(state);
        view = std::make_unique<EmailDetailView>(state, screen, actions);
        view->resize(700, 500);
        showActive(*view);
    }
    void TearDown() override {
        settle();
        view.reset();
        screen.reset();
        state.reset();
        ScreenTest::TearDown();
    }

    FakeExchange &expectRead(int uid) {
        return server.expect("GET", "/api/emails/read/" + QByteArray::number(uid) + "?folder=INBOX");
    }
    void show(qint64 uid) { screen->show(EmailWindowRef{uid, QStringLiteral("INBOX")}); }
    void open(const QByteArray &fields, int uid = 7) {
        expectRead(uid).json("{\"uid\": " + QByteArray::number(uid) + fields + "}");
        show(uid);
        settle();
    }
    QPushButton *button(const QString &name) const { return visibleNamed<QPushButton>(*view, name); }
    PlainTextView &text() const { return *view->findChild<PlainTextView *>(); }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    ManualClock clock;
    FocusedActions actions;
    std::shared_ptr<EmailDetailState> screen;
    std::unique_ptr<EmailDetailView> view;
};

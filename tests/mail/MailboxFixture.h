#pragma once

#include "mail/MailAnswers.h"
#include "mail/MailboxViewModel.h"
#include "notify/NotificationService.h"
#include "platform/Tasks.h"
#include "support/CoreTest.h"

/// A message list over a scripted server. The folder "Work" has nothing to do with the desktop widget.
class MailboxTest : public CoreTest {
protected:
    void SetUp() override { server.makeCurrent(); }
    void TearDown() override {
        model.reset();
        CoreTest::TearDown();
        NotificationService::shared().forgetMailboxes();
    }

    FakeExchange &expectList(const QByteArray &query) { return server.expect("GET", "/api/emails/list?" + query); }
    FakeExchange &expectPage(int page) {
        return expectList("folder=Work&page=" + QByteArray::number(page) + "&per_page=50");
    }
    FakeExchange &expectCached() { return server.expect("GET", "/api/emails/cached?folder=Work&page=1&per_page=50"); }
    FakeExchange &expectState() { return server.expect("GET", "/api/emails/notification-state?folder=Work"); }

    /// Brings these messages on screen.
    void show(const QByteArray &emails, int total = 2) {
        expectCached().answer(500);
        expectPage(1).json(pageJSON(emails, total, 3));
        await(model->load(QStringLiteral("Work"), 1, false));
    }

    std::vector<qint64> uids() const {
        std::vector<qint64> shown;
        for (const auto &email : model->emails.get())
            shown.push_back(email.uid);
        return shown;
    }

    FakeServer server;
    std::shared_ptr<MailboxViewModel> model = std::make_shared<MailboxViewModel>();
};

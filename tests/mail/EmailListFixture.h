#pragma once

#include "app/AppStateFixture.h"
#include "mail/EmailListState.h"
#include "mail/MailAnswers.h"

inline MailFolder folderAt(const QString &path, const std::optional<QString> &type = std::nullopt) {
    return {.path = path, .name = path, .type = type};
}

/// A message list screen's state over a scripted server.
class EmailListTest : public CoreTest, protected AppStateFixture {
protected:
    void SetUp() override {
        list = EmailListState::make(state);
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
    }
    void TearDown() override {
        settle();
        list.reset();
        state.reset();
        CoreTest::TearDown();
    }

    FakeExchange &expectPage(const QByteArray &folder, const QByteArray &rest = {}) {
        return server.expect("GET", "/api/emails/list?folder=" + folder + "&page=1&per_page=50" + rest);
    }
    void expectStart(const QByteArray &folder) {
        server.expect("GET", "/api/emails/cached?folder=" + folder + "&page=1&per_page=50").answer(500);
        server.expect("GET", "/api/folders/cached").json(R"({"folders": [{"path": "Work", "name": "Work"}]})");
    }
    /// Opens the folder "Work" with these messages.
    void open(const std::vector<qint64> &uids, int total = 2, int pages = 1) {
        expectStart("Work");
        expectPage("Work").json(pageJSON(emptyEmails(uids), total, pages));
        list->setFolder(folderAt(QStringLiteral("Work")));
        settle();
    }
    void reload(const std::vector<qint64> &uids) {
        expectPage("Work").json(pageJSON(emptyEmails(uids)));
        list->reload();
        settle();
    }
    void type(const QString &text) {
        for (int length = 1; length <= text.size(); ++length)
            list->setSearchQuery(text.first(length));
    }

    std::vector<qint64> uids() const {
        std::vector<qint64> shown;
        for (int number = 0; number < list->rows.rowCount(); ++number)
            shown.push_back(list->rows.row(number).uid);
        return shown;
    }
    std::optional<qint64> openUID() const { return state->selectedEmailUID; }

    ManualClock clock;
    std::shared_ptr<EmailListState> list;
};

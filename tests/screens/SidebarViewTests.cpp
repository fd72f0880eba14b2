#include "mail/screens/SidebarView.h"

#include "app/AppStateFixture.h"
#include "mail/SidebarModel.h"
#include "mail/screens/SidebarDelegate.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"

#include <QDragMoveEvent>
#include <QListView>
#include <QMimeData>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

/// The sidebar with the inbox and the folder "Work", while messages are dragged over it.
class SidebarScreen : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/folders")
            .json(R"({"folders": [{"path": "INBOX", "name": "Inbox", "type": "inbox"},
                                  {"path": "Work", "name": "Work"}]})")
            .anyNumberOfTimes();
        screen = MainScreenState::make(state);
        view = std::make_unique<SidebarView>(state, screen);
        view->resize(240, 600);
        showActive(*view);
        settle();
        list = view->findChild<QListView *>();
    }
    void TearDown() override {
        settle();
        view.reset();
        screen->close();
        screen.reset();
        state.reset();
        ScreenTest::TearDown();
    }

    void carry(const QByteArray &json) {
        data.setData(u"public.json"_s, json);
        QDragEnterEvent enter({1, 1}, Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &enter);
    }
    /// Whether the folder takes what is carried.
    bool hover(const QString &name) {
        QDragMoveEvent move(place(name), Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &move);
        return move.isAccepted();
    }
    void drop(const QString &name) {
        QDropEvent event(place(name), Qt::MoveAction, &data, Qt::LeftButton, {});
        QCoreApplication::sendEvent(list->viewport(), &event);
        settle();
    }
    QString target() const {
        return static_cast<SidebarDelegate *>(list->itemDelegate())->dropTarget.data().toString();
    }
    QPoint place(const QString &name) const {
        const auto *model = list->model();
        const auto found = model->match(model->index(0, 0), Qt::DisplayRole, name);
        return list->visualRect(found.value(0)).center();
    }

    std::shared_ptr<MainScreenState> screen;
    std::unique_ptr<SidebarView> view;
    QListView *list = nullptr;
    QMimeData data;
};

} // namespace

TEST_F(SidebarScreen, MarksTheFolderThatWouldTakeTheMessages) {
    carry(R"({"uid": 7, "folder": "INBOX"})");
    EXPECT_TRUE(hover(u"Work"_s));
    EXPECT_EQ(target(), u"Work"_s);
    EXPECT_FALSE(hover(u"Inbox"_s));
    EXPECT_EQ(target(), QString());
    EXPECT_FALSE(hover(u"Favorites"_s));
    EXPECT_FALSE(hover(u"Mailboxes"_s));
    EXPECT_TRUE(hover(u"Work"_s));
    QDragLeaveEvent leave;
    QCoreApplication::sendEvent(list->viewport(), &leave);
    EXPECT_EQ(target(), QString());
}

TEST_F(SidebarScreen, TakesNothingButMessages) {
    for (const auto *json : {"", "{}", "[]", R"({"uid": "x", "folder": "INBOX"})"}) {
        carry(json);
        EXPECT_FALSE(hover(u"Work"_s)) << json;
    }
}

TEST_F(SidebarScreen, MovesEachMessageThatIsDropped) {
    carry(R"([{"uid": 7, "folder": "INBOX"}, {"uid": 8, "folder": "Work"}, {"uid": 9, "folder": "INBOX"}])");
    auto &first = server.expect("POST", "/api/emails/move").answer(500);
    auto &second = server.expect("POST", "/api/emails/move").answer(200);
    ASSERT_TRUE(hover(u"Work"_s));
    drop(u"Work"_s);
    EXPECT_EQ(parseJSON(first.request().body), parseJSON(R"({"uid": 7, "from_folder": "INBOX", "to_folder": "Work"})"));
    EXPECT_EQ(parseJSON(second.request().body),
              parseJSON(R"({"uid": 9, "from_folder": "INBOX", "to_folder": "Work"})"));
    EXPECT_EQ(state->emailsChangedInFolder.get(), u"INBOX"_s);
    EXPECT_EQ(target(), QString());
}

#include "mail/screens/EmailRowDelegate.h"
#include "screens/ListScreenFixture.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/SwipeTrack.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QWheelEvent>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// Rows pushed, pressed and dragged.
class ListGestures : public ListScreen {
protected:
    void SetUp() override {
        ListScreen::SetUp();
        server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
    }
    QPoint place(int row) const { return rows().visualRect(rows().model()->index(row, 0)).center(); }
    /// One step of a touch pad or a sideways wheel.
    void push(int row, int distance, Qt::ScrollPhase phase = Qt::NoScrollPhase) {
        const QPoint at = place(row);
        QWheelEvent event(at, rows().viewport()->mapToGlobal(at), {distance, 0}, {distance * 3, 0}, Qt::NoButton,
                          Qt::NoModifier, phase, false);
        QCoreApplication::sendEvent(rows().viewport(), &event);
    }
    /// One step of fingers that move down.
    void pull(QWidget *content, int distance, Qt::ScrollPhase phase) {
        QWheelEvent event({20, 20}, content->mapToGlobal(QPoint(20, 20)), {0, distance}, {0, distance}, Qt::NoButton,
                          Qt::NoModifier, phase, false);
        QCoreApplication::sendEvent(content, &event);
    }
    SwipeTrack &track() const { return *view->findChild<SwipeTrack *>(); }
    QAbstractButton *action(const QString &name) const { return visibleNamed<QAbstractButton>(track(), name); }
    QMenu *menu() const {
        for (auto *candidate : view->findChildren<QMenu *>())
            if (candidate->isVisible())
                return candidate;
        return nullptr;
    }
    FakeExchange &expectPost(const QByteArray &path) { return server.expect("POST", path).answer(200); }
    void expectBody(FakeExchange &request, const QByteArray &json) {
        settle();
        EXPECT_EQ(parseJSON(request.request().body), parseJSON(json));
    }
};

} // namespace

TEST_F(ListGestures, SwipeLaysTheActionsOpenUntilOneIsPressed) {
    open({1, 2, 3});
    push(1, 60);
    EXPECT_TRUE(track().isVisible());
    EXPECT_EQ(track().width(), 60);
    push(1, 40);
    clock.advance(200ms);
    ASSERT_TRUE(action(u"Read"_s));
    ASSERT_TRUE(action(u"Star"_s));
    auto &request = expectPost("/api/emails/flag");
    action(u"Star"_s)->click();
    EXPECT_FALSE(track().isVisible());
    expectBody(request, R"({"uid": 2, "folder": "Work", "flag": "flagged", "set": true})");
    EXPECT_THAT(selected(), IsEmpty());
}

TEST_F(ListGestures, ShortSwipeChangesNothing) {
    open({1, 2, 3});
    push(1, -40);
    EXPECT_TRUE(track().isVisible());
    clock.advance(200ms);
    EXPECT_TRUE(spinUntil([this] { return !track().isVisible(); }));
    settle();
    server.assertSilence();
}

TEST_F(ListGestures, FullSwipeDoesTheFirstAction) {
    open({1, 2, 3});
    auto &request = expectPost("/api/emails/delete");
    push(1, -120, Qt::ScrollBegin);
    push(1, -120, Qt::ScrollUpdate);
    EXPECT_TRUE(action(u"Delete"_s));
    EXPECT_FALSE(action(u"Archive"_s));
    push(1, 0, Qt::ScrollEnd);
    expectBody(request, R"({"uid": 2, "folder": "Work", "permanent": false, "to_folder": "Trash"})");
    EXPECT_FALSE(track().isVisible());
    EXPECT_EQ(rows().model()->rowCount(), 2);
}

TEST_F(ListGestures, ScrollingAndPressingElsewhereCloseTheTrack) {
    open({1, 2, 3});
    press(Qt::Key_Down);
    press(Qt::Key_Left);
    ASSERT_TRUE(action(u"Archive"_s));
    click(2);
    EXPECT_FALSE(track().isVisible());
    EXPECT_THAT(selected(), ElementsAre(1));
    press(Qt::Key_Left);
    expectPage().json(pageJSON(emptyEmails({9, 1, 2, 3})));
    list->reload();
    settle();
    EXPECT_FALSE(track().isVisible());
    EXPECT_TRUE(rows().hasFocus());
}

TEST_F(ListGestures, EscapeClosesTheTrackWhereverTheKeyboardIs) {
    open({1, 2, 3});
    QWidget *const places[] = {&rows(), search()};
    for (auto *place : places) {
        place->setFocus();
        push(1, 100);
        clock.advance(200ms);
        ASSERT_TRUE(track().isVisible());
        QTest::keyClick(place, Qt::Key_Escape);
        EXPECT_FALSE(track().isVisible());
        EXPECT_TRUE(place->hasFocus());
    }
}

TEST_F(ListGestures, ArrowKeysReachTheActionsOfARow) {
    open({1, 2, 3});
    press(Qt::Key_Down);
    press(Qt::Key_Right);
    ASSERT_TRUE(action(u"Unread"_s));
    EXPECT_TRUE(action(u"Unread"_s)->hasFocus());
    QTest::keyClick(view->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(track().isVisible());
    EXPECT_TRUE(rows().hasFocus());
    press(Qt::Key_Left);
    EXPECT_TRUE(action(u"Delete"_s)->hasFocus());
    QTest::keyClick(view->focusWidget(), Qt::Key_Left);
    EXPECT_TRUE(action(u"Archive"_s)->hasFocus());
    auto &request = expectPost("/api/emails/move");
    QTest::keyClick(view->focusWidget(), Qt::Key_Return);
    expectBody(request, R"({"uid": 1, "from_folder": "Work", "to_folder": "Archive"})");
}

TEST_F(ListGestures, SwipeEndsWhenAnotherRowComesUnderIt) {
    open({1, 2, 3});
    push(0, 0, Qt::ScrollBegin);
    push(0, -40, Qt::ScrollUpdate);
    EXPECT_TRUE(track().isVisible());
    reload({9, 1, 2, 3});
    ASSERT_EQ(rows().model()->rowCount(), 4);
    push(0, -2000, Qt::ScrollUpdate);
    push(0, 0, Qt::ScrollEnd);
    settle();
    // Nothing was deleted: that would have been a request.
    server.assertSilence();
    EXPECT_FALSE(track().isVisible());
    push(0, 0, Qt::ScrollBegin);
    push(0, -40, Qt::ScrollUpdate);
    EXPECT_TRUE(track().isVisible());
}

TEST_F(ListGestures, PressSelectsOnlyWhenItIsReleased) {
    open({1, 2, 3});
    QTest::mousePress(rows().viewport(), Qt::LeftButton, {}, place(1));
    EXPECT_THAT(selected(), IsEmpty());
    QTest::mouseRelease(rows().viewport(), Qt::LeftButton, {}, place(1));
    EXPECT_THAT(selected(), ElementsAre(2));
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, Qt::ControlModifier, place(2));
    EXPECT_THAT(selected(), ElementsAre(2, 3));
    QTest::mousePress(rows().viewport(), Qt::LeftButton, {}, place(2));
    EXPECT_THAT(selected(), ElementsAre(2, 3));
    QTest::mouseRelease(rows().viewport(), Qt::LeftButton, {}, place(2));
    EXPECT_THAT(selected(), ElementsAre(3));
}

TEST_F(ListGestures, PullAtTheTopReadsThePageAgain) {
    open({1, 2, 3});
    auto *content = rows().viewport();
    for (const int distance : {89, 90}) {
        if (distance == 90)
            expectPage().json(pageJSON(emptyEmails({1})));
        pull(content, 0, Qt::ScrollBegin);
        pull(content, distance, Qt::ScrollUpdate);
        pull(content, 0, Qt::ScrollEnd);
        settle();
    }
    EXPECT_EQ(rows().model()->rowCount(), 1);
    pull(content, 500, Qt::NoScrollPhase);
    settle();
    server.assertSilence();
}

TEST_F(ListGestures, PullTriesAgainWhereThereAreNoRows) {
    open({});
    auto *placeholder = view->findChild<EmptyStateView *>();
    ASSERT_TRUE(placeholder->isVisible());
    expectPage().json(pageJSON(emptyEmails({1})));
    pull(placeholder, 0, Qt::ScrollBegin);
    pull(placeholder, 90, Qt::ScrollUpdate);
    pull(placeholder, 0, Qt::ScrollEnd);
    settle();
    EXPECT_EQ(rows().model()->rowCount(), 1);
}

TEST_F(ListGestures, DeleteKeyMovesTheSelectionToTheTrashAtOnce) {
    open({1, 2, 3});
    click(0);
    click(1, Qt::ShiftModifier);
    auto &request = expectPost("/api/emails/bulk-delete");
    press(Qt::Key_Delete);
    expectBody(request, R"({"uids": [1, 2], "folder": "Work", "permanent": false, "to_folder": "Trash"})");
    EXPECT_EQ(rows().model()->rowCount(), 1);
}

TEST_F(ListGestures, MenuOpensWithoutSelectingItsRow) {
    open({1, 2, 3});
    click(2);
    click(0);
    QTest::mouseClick(rows().viewport(), Qt::RightButton, {}, place(2));
    QContextMenuEvent event(QContextMenuEvent::Mouse, place(2), rows().viewport()->mapToGlobal(place(2)));
    QCoreApplication::sendEvent(rows().viewport(), &event);
    ASSERT_TRUE(menu());
    EXPECT_THAT(selected(), ElementsAre(1));
    EXPECT_EQ(static_cast<EmailRowDelegate *>(rows().itemDelegate())->menuRow.row(), 2);
    auto &request = expectPost("/api/emails/move");
    for (auto *entry : menu()->actions())
        if (entry->text() == u"Mark as Spam"_s)
            entry->trigger();
    menu()->close();
    expectBody(request, R"({"uid": 3, "from_folder": "Work", "to_folder": "Junk"})");
}

TEST_F(ListGestures, MenuOpensFromTheKeyboard) {
    open({1, 2, 3});
    press(Qt::Key_Down);
    press(Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_TRUE(menu());
    menu()->close();
    settle();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(&rows(), &event);
    ASSERT_TRUE(menu());
    menu()->close();
}

TEST_F(ListGestures, StarIsPressedInFavoritesOnly) {
    server.expect("GET", "/api/emails/list?flagged=1&folder=INBOX&page=1&per_page=50")
        .json(pageJSON(R"({"uid": 4, "flagged": true})"));
    list->setFolder(favoritesFolder());
    settle();
    const auto star = EmailRowDelegate::starRect(rows().visualRect(rows().model()->index(0, 0))).center();
    auto &request = expectPost("/api/emails/flag");
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, star);
    expectBody(request, R"({"uid": 4, "folder": "INBOX", "flag": "flagged", "set": false})");
    EXPECT_THAT(selected(), IsEmpty());
    open({1, 2});
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, star);
    EXPECT_THAT(selected(), ElementsAre(1));
}

TEST_F(ListGestures, MenuBarHearsOfTheListWhileItIsOnShow) {
    open({1, 2, 3});
    ASSERT_TRUE(actions.mailbox());
    EXPECT_EQ(actions.mailbox()->selectedCount, 0);
    click(0);
    click(1, Qt::ShiftModifier);
    settle();
    EXPECT_EQ(actions.mailbox()->selectedCount, 2);
    auto &request = expectPost("/api/emails/bulk-move");
    actions.mailbox()->perform(MacMailAction::archive);
    expectBody(request, R"({"uids": [1, 2], "from_folder": "Work", "to_folder": "Archive"})");
    EXPECT_EQ(actions.mailbox()->selectedCount, 0);
    actions.mailbox()->perform(MacMailAction::search);
    settle();
    EXPECT_TRUE(search()->hasFocus());
    view->hide();
    EXPECT_FALSE(actions.mailbox());
}

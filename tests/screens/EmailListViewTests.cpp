#include "screens/ListScreenFixture.h"
#include "screens/Widgets.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/SkeletonView.h"

#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <gmock/gmock.h>
#include <numeric>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

std::vector<qint64> numbers(qint64 from, qint64 to) {
    std::vector<qint64> result(size_t(to - from + 1));
    std::iota(result.begin(), result.end(), from);
    return result;
}

} // namespace

TEST_F(ListScreen, KeepsSelectionScrollAndFocusOverAReload) {
    open(numbers(101, 150));
    click(2);
    rows().verticalScrollBar()->setValue(60);
    ASSERT_TRUE(rows().hasFocus());
    auto shown = numbers(101, 150);
    shown.pop_back();
    reload(shown);
    EXPECT_THAT(selected(), ElementsAre(103));
    EXPECT_EQ(currentUID(), 103);
    EXPECT_EQ(rows().verticalScrollBar()->value(), 60);
    EXPECT_TRUE(rows().hasFocus());
    reload(numbers(99, 148));
    EXPECT_THAT(selected(), ElementsAre(103));
    EXPECT_EQ(currentUID(), 103);
    EXPECT_TRUE(rows().hasFocus());
    EXPECT_EQ(state->selectedEmailUID.get(), 103);
}

TEST_F(ListScreen, ShowsTheSelectionThatIsLeftOfSeveral) {
    open({1, 2, 3, 4});
    click(0);
    click(2, Qt::ShiftModifier);
    settle();
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3));
    EXPECT_EQ(state->selectedEmailUID.get(), std::nullopt);
    EXPECT_TRUE(showsText(*view, u"3 selected"_s));
    reload({9, 3, 4});
    EXPECT_THAT(selected(), ElementsAre(3));
    EXPECT_EQ(rows().selectionModel()->selectedIndexes().size(), 1);
    EXPECT_EQ(state->selectedEmailUID.get(), 3);
}

TEST_F(ListScreen, TakesNoRowThatComesBetweenTwoSelectedOnes) {
    open({1, 2, 3});
    click(0);
    click(1, Qt::ShiftModifier);
    reload({1, 7, 2, 3});
    EXPECT_THAT(selected(), ElementsAre(1, 2));
    reload({2, 3, 7, 1});
    EXPECT_THAT(selected(), ElementsAre(1, 2));
    EXPECT_EQ(rows().selectionModel()->selectedIndexes().size(), 2);
}

TEST_F(ListScreen, ClosesTheMessageWhoseRowIsGone) {
    open({1, 2, 3});
    click(1);
    reload({1, 3});
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_THAT(rows().selectionModel()->selectedIndexes(), IsEmpty());
    EXPECT_EQ(state->selectedEmailUID.get(), std::nullopt);
}

TEST_F(ListScreen, IsWalkedThroughWithTheKeyboard) {
    open({1, 2, 3, 4});
    ASSERT_TRUE(rows().hasFocus());
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_THAT(selected(), ElementsAre(currentUID()));
    EXPECT_EQ(state->selectedEmailUID.get(), currentUID());
    press(Qt::Key_Home);
    EXPECT_THAT(selected(), ElementsAre(1));
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(selected(), ElementsAre(1, 2));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_THAT(selected(), ElementsAre(1, 2, 3, 4));
    press(Qt::Key_End);
    EXPECT_THAT(selected(), ElementsAre(4));
}

TEST_F(ListScreen, SelectsTheFirstRowWithTheFirstStep) {
    open({1, 2, 3});
    press(Qt::Key_Down);
    EXPECT_THAT(selected(), ElementsAre(1));
    press(Qt::Key_Down);
    EXPECT_THAT(selected(), ElementsAre(2));
    reload({1, 3});
    ASSERT_THAT(selected(), IsEmpty());
    const auto reached = currentUID();
    press(Qt::Key_Up);
    EXPECT_THAT(selected(), ElementsAre(reached));
}

TEST_F(ListScreen, GoesOnWithTheRowThatTakesThePlaceOfARemovedOne) {
    server.expect("POST", "/api/emails/bulk-delete").json("{}").anyNumberOfTimes();
    server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500).anyNumberOfTimes();
    open({1, 2, 3, 4}, 4);
    const auto remove = [this](int row) {
        click(row);
        press(Qt::Key_Delete);
        settle();
        EXPECT_TRUE(selected().empty());
    };
    remove(1);
    EXPECT_EQ(currentUID(), 3);
    press(Qt::Key_Down);
    EXPECT_THAT(selected(), ElementsAre(3));
    remove(2);
    EXPECT_EQ(currentUID(), 3);
    remove(0);
    EXPECT_EQ(currentUID(), 3);
    press(Qt::Key_Home);
    EXPECT_THAT(selected(), ElementsAre(3));
}

TEST_F(ListScreen, IsEnteredFromTheSearchBox) {
    open({1, 2});
    search()->setFocus();
    QTest::keyClick(search(), Qt::Key_Down);
    EXPECT_TRUE(rows().hasFocus());
    search()->setFocus();
    expectPage().json(pageJSON(emptyEmails({1, 2})));
    QTest::keyClick(search(), Qt::Key_Return);
    settle();
    EXPECT_TRUE(rows().hasFocus());
    EXPECT_EQ(rows().selectionModel()->selectedIndexes().size(), 0);
}

TEST_F(ListScreen, LeavesTypedLettersToOthers) {
    open({1, 2, 3});
    click(0);
    for (const auto key : {Qt::Key_S, Qt::Key_1, Qt::Key_Slash}) {
        QKeyEvent typed(QEvent::KeyPress, key, Qt::NoModifier, QString(QChar(key)));
        QCoreApplication::sendEvent(&rows(), &typed);
        EXPECT_FALSE(typed.isAccepted());
    }
    EXPECT_THAT(selected(), ElementsAre(1));
}

TEST_F(ListScreen, PagesTheOpenedMessageWithSpace) {
    open({1, 2, 3});
    click(1);
    QSignalSpy pages(view.get(), &EmailListView::pageMessageRequested);
    press(Qt::Key_Space);
    press(Qt::Key_Space, Qt::ShiftModifier);
    ASSERT_EQ(pages.count(), 2);
    EXPECT_TRUE(pages[0][0].toBool());
    EXPECT_FALSE(pages[1][0].toBool());
    EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(ListScreen, ShowsNoSelectionOfTheInboxAmongTheFavorites) {
    server.expect("GET", "/api/emails/cached?folder=INBOX&page=1&per_page=50").answer(500);
    server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
    server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50").json(pageJSON(emptyEmails({1, 2})));
    list->setFolder({.path = u"INBOX"_s, .name = u"INBOX"_s, .type = u"inbox"_s});
    settle();
    click(1);
    server.expect("GET", "/api/emails/list?flagged=1&folder=INBOX&page=1&per_page=50").json(pageJSON(emptyEmails({2})));
    list->setFolder(favoritesFolder());
    settle();
    EXPECT_THAT(selected(), IsEmpty());
    EXPECT_FALSE(rows().selectionModel()->hasSelection());
    click(0);
    EXPECT_THAT(selected(), ElementsAre(2));
}

TEST_F(ListScreen, OpensAWindowByReturnAndDoubleClick) {
    open({1, 2, 3});
    QSignalSpy wanted(list.get(), &EmailListState::emailWindowRequested);
    press(Qt::Key_Return);
    EXPECT_EQ(wanted.count(), 0);
    click(1);
    press(Qt::Key_Return);
    press(Qt::Key_Enter);
    ASSERT_EQ(wanted.count(), 2);
    EXPECT_EQ(wanted[0][0].value<EmailWindowRef>(), (EmailWindowRef{2, u"Work"_s}));
    click(2);
    QTest::mouseDClick(rows().viewport(), Qt::LeftButton, {}, rows().visualRect(rows().model()->index(2, 0)).center());
    ASSERT_EQ(wanted.count(), 3);
    EXPECT_EQ(wanted[2][0].value<EmailWindowRef>(), (EmailWindowRef{3, u"Work"_s}));
    press(Qt::Key_A, Qt::ControlModifier);
    press(Qt::Key_Return);
    EXPECT_EQ(wanted.count(), 3);
}

TEST_F(ListScreen, TurnsPagesAndSaysWhere) {
    open({1}, 120, 3);
    auto *previous = visibleNamed<IconButton>(*view, u"Previous page"_s);
    auto *next = visibleNamed<IconButton>(*view, u"Next page"_s);
    EXPECT_TRUE(showsText(*view, u"1-50 of 120"_s));
    EXPECT_TRUE(showsText(*view, u"120 messages"_s));
    EXPECT_FALSE(previous->isEnabled());
    expectPage(2).json(pageJSON(emptyEmails({2}), 120, 3));
    next->click();
    settle();
    EXPECT_TRUE(showsText(*view, u"51-100 of 120"_s));
    expectPage(3).json(pageJSON(emptyEmails({3}), 120, 3));
    next->click();
    settle();
    EXPECT_FALSE(next->isEnabled());
    EXPECT_TRUE(previous->isEnabled());
    EXPECT_TRUE(showsText(*view, u"101-120 of 120"_s));
}

TEST_F(ListScreen, ReadsThePageAgainOnRequest) {
    open({1});
    expectPage().json(pageJSON(emptyEmails({1, 2})));
    visibleNamed<IconButton>(*view, u"Get New Mail (⇧⌘N)"_s)->click();
    settle();
    EXPECT_EQ(rows().model()->rowCount(), 2);
}

TEST_F(ListScreen, SearchesForWhatIsTyped) {
    open({1, 2});
    EXPECT_EQ(search()->placeholderText(), u"Search emails…"_s);
    view->focusSearch();
    QTest::keyClicks(search(), u"abc"_s);
    expectPage(1, "&search=abc").json(pageJSON("", 0, 0));
    clock.advance(300ms);
    settle();
    EXPECT_TRUE(showsText(*view, u"This folder is empty"_s));
    EXPECT_TRUE(search()->hasFocus());
    expectPage().json(pageJSON(emptyEmails({1, 2})));
    QTest::keyClick(search(), Qt::Key_Escape);
    clock.advance(300ms);
    settle();
    EXPECT_EQ(search()->text(), QString());
    EXPECT_TRUE(rows().isVisible());
}

TEST_F(ListScreen, EmptiesTheSearchWithTheFolder) {
    open({1});
    QTest::keyClicks(search(), u"abc"_s);
    server.expect("GET", "/api/emails/cached?folder=Other&page=1&per_page=50").answer(500);
    server.expect("GET", "/api/emails/list?folder=Other&page=1&per_page=50").json(pageJSON("", 0, 0));
    list->setFolder({.path = u"Other"_s, .name = u"Other"_s});
    settle();
    EXPECT_EQ(search()->text(), QString());
    EXPECT_TRUE(showsText(*view, u"Other"_s));
}

TEST_F(ListScreen, LeavesTheFocusToWhoTypesWhileTheFirstRowsCome) {
    auto &live = expectPage().held();
    list->setFolder({.path = u"Work"_s, .name = u"Work"_s});
    live.request();
    EXPECT_TRUE(view->findChild<SkeletonView *>()->isVisible());
    view->focusSearch();
    answerHeld(live, pageJSON(emptyEmails({1})));
    settle();
    EXPECT_TRUE(rows().isVisible());
    EXPECT_TRUE(search()->hasFocus());
}

TEST_F(ListScreen, SaysWhyItCouldNotLoad) {
    expectPage().json(R"({"error": "Mailbox is locked"})", 503);
    list->setFolder({.path = u"Work"_s, .name = u"Work"_s});
    settle();
    EXPECT_TRUE(showsText(*view, u"Could not load emails"_s));
    EXPECT_TRUE(showsText(*view, u"Mailbox is locked"_s));
    EXPECT_FALSE(showsText(*view, u"0 messages"_s));
    EXPECT_FALSE(showsText(*view, u"No emails"_s));
    expectPage().json(pageJSON(emptyEmails({1}), 1));
    visibleNamed<QPushButton>(*view, u"Try Again"_s)->click();
    settle();
    EXPECT_TRUE(showsText(*view, u"1 message"_s));
}

TEST_F(ListScreen, SaysThatTheRowsAreNotTheNewest) {
    open({1, 2});
    expectPage().json(R"({"error": "Mailbox is locked"})", 503);
    list->reload();
    settle();
    EXPECT_TRUE(rows().isVisible());
    EXPECT_TRUE(showsText(*view, u"Could not refresh"_s));
    reload({1, 2});
    EXPECT_FALSE(showsText(*view, u"Could not refresh"_s));
}

TEST_F(ListScreen, ShowsThePictureOfASendersDomainOrARecipients) {
    server.expect("GET", "/api/emails/cached?folder=Sent&page=1&per_page=50").answer(500);
    for (const QByteArray domain : {"senders.example", "recipients.example"})
        expectPicture(domain);
    expectPage().json(pageJSON(R"({"uid": 1, "from": "a@senders.example", "to": "b@nobody.example"},
                                  {"uid": 2, "from": "c@senders.example"})"));
    list->setFolder({.path = u"Work"_s, .name = u"Work"_s});
    settle();
    EXPECT_TRUE(spinUntil([this] { return showsPicture(0) && showsPicture(1); }));
    server.expect("GET", "/api/emails/list?folder=Sent&page=1&per_page=50")
        .json(pageJSON(R"({"uid": 1, "from": "a@senders.example", "to": "b@recipients.example"})"));
    list->setFolder({.path = u"Sent"_s, .name = u"Sent"_s, .type = u"sent"_s});
    settle();
    EXPECT_TRUE(spinUntil([this] { return showsPicture(0); }));
}

TEST_F(ListScreen, NamesEverythingThatTakesTheFocus) {
    open({1});
    EXPECT_EQ(namelessControls(*view), QStringList());
}

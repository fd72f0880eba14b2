#include "mail/screens/EmailBodyView.h"
#include "mail/screens/FlowingAddresses.h"
#include "mail/screens/LinkTargetLabel.h"
#include "screens/MessageScreenFixture.h"
#include "ui/screens/Spinner.h"

#include <QApplication>
#include <QLabel>
#include <QRegularExpression>
#include <QTest>
#include <algorithm>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

QString toastText(const EmailDetailState &screen) {
    return screen.copiedToast->value_or(ToastMessage()).message;
}

QStringList addressButtons(const QWidget &view) {
    QStringList labels;
    for (auto *addresses : view.findChildren<FlowingAddresses *>())
        for (auto *address : addresses->findChildren<QPushButton *>())
            if (address->isVisible())
                labels.append(address->text());
    return labels;
}

} // namespace

TEST_F(MessageScreen, AsksForASelection) {
    EXPECT_TRUE(showsText(*view, u"No email selected"_s));
    EXPECT_TRUE(showsText(*view, u"Select an email to read it"_s));
    EXPECT_FALSE(button(u"Try Again"_s));
}

TEST_F(MessageScreen, ShowsProgressOnlyWhenTheMessageIsSlow) {
    auto &read = expectRead(7).held();
    show(7);
    read.request();
    deliverQueuedEvents();
    const auto showsProgress = [this] {
        const auto spinners = view->findChildren<Spinner *>();
        return std::ranges::any_of(spinners, &QWidget::isVisible);
    };
    EXPECT_FALSE(showsProgress());
    clock.advance(150ms);
    EXPECT_TRUE(showsProgress());
    answerHeld(read, R"({"uid": 7, "body_text": "Hello"})");
    settle();
    EXPECT_FALSE(showsProgress());
    EXPECT_TRUE(text().isVisible());
    clock.advance(1s);
    EXPECT_TRUE(text().isVisible());
}

TEST_F(MessageScreen, TriesAgainAfterAFailure) {
    expectRead(7).json(R"({"error": "No such message"})", 404);
    show(7);
    settle();
    EXPECT_TRUE(showsText(*view, u"Couldn't Load This Email"_s));
    EXPECT_TRUE(showsText(*view, u"No such message"_s));
    expectRead(7).json(R"({"uid": 7, "body_text": "Hello"})");
    button(u"Try Again"_s)->click();
    settle();
    EXPECT_TRUE(text().isVisible());
    EXPECT_FALSE(button(u"Try Again"_s));
}

TEST_F(MessageScreen, SaysThatTheMessageWasMoved) {
    open(R"(, "body_text": "Hello")");
    screen->messageMoved = true;
    settle();
    EXPECT_TRUE(showsText(*view, u"Message moved"_s));
    EXPECT_FALSE(text().isVisible());
    EXPECT_FALSE(button(u"Try Again"_s));
}

TEST_F(MessageScreen, ShowsPlainTextAndNoImageBar) {
    open(R"(, "body_text": "Hello <img src=x>")");
    text().selectAll();
    EXPECT_EQ(text().selectedText(), u"Hello <img src=x>"_s);
    EXPECT_FALSE(button(u"Show Images"_s));
    open("", 8);
    EXPECT_FALSE(text().isVisible());
}

TEST_F(MessageScreen, StartsEachMessageAtItsTop) {
    const auto lines = R"(, "body_text": ")" + QByteArray("line\\n").repeated(500) + "\"";
    open(lines);
    auto *bar = view->findChild<QScrollArea *>()->verticalScrollBar();
    ASSERT_TRUE(spinUntil([&] { return bar->maximum() > 300; }));
    bar->setValue(300);
    screen->copySubject();
    settle();
    EXPECT_EQ(bar->value(), 300);
    open(lines, 8);
    EXPECT_EQ(bar->value(), 0);
    bar->setValue(300);
    server.expect("GET", "/api/emails/read/8?folder=Work").json("{\"uid\": 8" + lines + "}");
    server.expect("GET", "/api/emails/notification-state?folder=Work").answer(500).anyNumberOfTimes();
    screen->show(EmailWindowRef{8, u"Work"_s});
    settle();
    EXPECT_EQ(bar->value(), 0);
}

TEST_F(MessageScreen, ShowsWhoWroteToWhom) {
    open(R"(, "subject": "", "from": [{"name": "A & B", "email": "a&b@x.org"}],
             "to": [{"name": "Bo & Co", "email": "b@x.org"}, {"address": "c@x.org"}], "cc": [])");
    EXPECT_TRUE(showsText(*view, u"A & B"_s));
    EXPECT_TRUE(button(u"a&b@x.org"_s));
    EXPECT_TRUE(showsText(*view, u"To:"_s));
    EXPECT_FALSE(showsText(*view, u"Cc:"_s));
    EXPECT_EQ(addressButtons(*view), (QStringList{u"Bo && Co,"_s, u"c@x.org"_s}));
    open(R"(, "cc": [{"email": "d@x.org"}])", 8);
    EXPECT_TRUE(showsText(*view, u"(No Subject)"_s));
    EXPECT_TRUE(showsText(*view, u"Unknown"_s));
    EXPECT_FALSE(button(u"a&b@x.org"_s));
    EXPECT_FALSE(showsText(*view, u"To:"_s));
    EXPECT_TRUE(showsText(*view, u"Cc:"_s));
    EXPECT_EQ(addressButtons(*view), QStringList{u"d@x.org"_s});
}

TEST_F(MessageScreen, CopiesAddressesAndTheSubject) {
    server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=plan").answer(500);
    open(R"(, "subject": "Plan", "from": [{"name": "Ada", "email": "a@x.org"}],
             "to": [{"name": "Bo", "email": "b@x.org"}])");
    auto *sender = button(u"a@x.org"_s);
    EXPECT_EQ(sender->toolTip(), u"Click to copy"_s);
    QTest::keyClick(sender, Qt::Key_Space);
    EXPECT_EQ(clipboard(), u"a@x.org"_s);
    EXPECT_EQ(toastText(*screen), u"a@x.org copied to clipboard"_s);
    auto *recipient = button(u"Click to copy b@x.org"_s);
    ASSERT_TRUE(recipient);
    EXPECT_EQ(recipient->toolTip(), u"Click to copy b@x.org"_s);
    recipient->click();
    EXPECT_EQ(clipboard(), u"b@x.org"_s);
    EXPECT_EQ(toastText(*screen), u"b@x.org copied to clipboard"_s);
    screen->copySubject();
    EXPECT_EQ(clipboard(), u"Plan"_s);
    settle();
    clock.advance(3s);
    EXPECT_EQ(screen->copiedToast.get(), std::nullopt);
}

TEST_F(MessageScreen, KeepsToTheWidthOfItsColumn) {
    const auto subject = QByteArray(300, 's'), address = QByteArray(80, 'a') + "@x.org";
    server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=" + subject)
        .json(R"({"emails": [{"uid": 5, "subject": ")" + subject + R"("}], "total": 1, "page": 1, "pages": 1})");
    open(R"(, "body_text": "x", "subject": ")" + subject + R"(", "from": [{"email": ")" + address +
         R"("}], "to": [{"email": ")" + address + R"("}], "attachments": [{"filename": ")" + subject + R"("}])");
    screen->toggleThread();
    for (const int width : {700, 320}) {
        view->resize(width, 500);
        settle();
        const auto *area = view->findChild<QScrollArea *>();
        EXPECT_EQ(area->widget()->width(), area->viewport()->width());
    }
}

TEST_F(MessageScreen, TellsTheMenuBarWhatTheTopmostMessageOffers) {
    EXPECT_FALSE(actions.message());
    open(R"(, "attachments": [{"type": "image/png", "cid": "a"}])");
    ASSERT_TRUE(actions.message());
    EXPECT_TRUE(actions.message()->hasAttachments);
    auto &read = server.expect("GET", "/api/emails/read/5?folder=INBOX").held();
    screen->openRelated(5);
    read.request();
    deliverQueuedEvents();
    EXPECT_FALSE(actions.message());
    answerHeld(read, R"({"uid": 5, "body_text": "related"})");
    settle();
    ASSERT_TRUE(actions.message());
    EXPECT_FALSE(actions.message()->hasAttachments);
    actions.message()->perform(MacMailAction::reply);
    EXPECT_EQ(state->composeReplyTo.get()->uid, 5);
    ASSERT_TRUE(button(u"Reply"_s));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left, Qt::AltModifier);
    settle();
    EXPECT_TRUE(actions.message()->hasAttachments);
    screen->show(std::nullopt);
    settle();
    EXPECT_FALSE(actions.message());
}

TEST_F(MessageScreen, GivesTheBodyTheFocusAsSoonAsItIsThere) {
    view->focusBody();
    open(R"(, "body_text": "x")");
    EXPECT_TRUE(text().hasFocus());
}

TEST_F(MessageScreen, NamesEverythingThatTakesTheFocus) {
    EXPECT_EQ(namelessControls(*view), QStringList());
    open(R"(, "body_text": "x", "from": [{"name": "Ada", "email": "a@x.org"}], "to": [{"email": "b@x.org"}])");
    EXPECT_EQ(namelessControls(*view), QStringList());
}

TEST_F(MessageScreen, IsWalkedThroughFromTopToBottomWithTheTabKey) {
    server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=plan")
        .json(pageJSON(R"({"uid": 5, "subject": "Re: Plan", "from": "Bo <bo@x.org>"})"));
    open(R"(, "body_text": "first")", 6);
    open(R"(, "subject": "Plan", "body_text": "words", "from": [{"email": "a@x.org"}], "to": [{"email": "b@x.org"}],
             "cc": [{"email": "c@x.org"}], "attachments": [{"filename": "a.txt"}, {"filename": "b.txt"}])");
    screen->toggleThread();
    settle();
    text().setFocus();
    auto order = tabOrder(*view);
    // The link ends with a date.
    order.replaceInStrings(QRegularExpression(u"^(Bo, Re: Plan), .*"_s), u"\\1"_s);
    EXPECT_EQ(order, (QStringList{u"Message text"_s, u"Download All"_s, u"a.txt"_s, u"b.txt"_s, u"Thread (1 related)"_s,
                                  u"Bo, Re: Plan"_s, u"Reply"_s, u"Reply All"_s, u"Forward"_s, u"Reply"_s,
                                  u"Reply All"_s, u"Forward"_s, u"Flag"_s, u"More"_s, u"Plan"_s, u"a@x.org"_s,
                                  u"Click to copy b@x.org"_s, u"Click to copy c@x.org"_s}));
}

TEST_F(MessageScreen, StaysWhereItIsWhenTheTabKeyEntersALongText) {
    open(R"(, "from": [{"email": "a@x.org"}], "body_text": ")" + QByteArray("line\\n").repeated(500) + "\"");
    auto *bar = view->findChild<QScrollArea *>()->verticalScrollBar();
    ASSERT_TRUE(spinUntil([&] { return bar->maximum() > 1000; }));
    button(u"a@x.org"_s)->setFocus();
    const auto withoutFocus = text().grab().toImage();
    QTest::keyClick(button(u"a@x.org"_s), Qt::Key_Tab);
    EXPECT_TRUE(text().hasFocus());
    EXPECT_EQ(bar->value(), 0);
    EXPECT_NE(text().grab().toImage(), withoutFocus) << "the focus is seen";
    QTest::keyClick(&text(), Qt::Key_Tab);
    EXPECT_GT(bar->value(), 1000);
    bar->setValue(0);
    QTest::keyClick(view->focusWidget(), Qt::Key_Backtab);
    EXPECT_TRUE(text().hasFocus());
    EXPECT_EQ(bar->value(), 0);
    bar->setValue(500);
    QTest::keyClick(&text(), Qt::Key_Backtab);
    EXPECT_LT(bar->value(), 100) << "what is out of sight is brought into view";
}

TEST_F(MessageScreen, DeleteKeyMovesTheMessageToTheTrash) {
    open(R"(, "body_text": "x")");
    auto &move = server.expect("POST", "/api/emails/move").answer(200);
    text().setFocus();
    QTest::keyClick(&text(), Qt::Key_Delete);
    settle();
    EXPECT_EQ(parseJSON(move.request().body), parseJSON(R"({"uid": 7, "from_folder": "INBOX", "to_folder": "Trash"})"));
    EXPECT_TRUE(showsText(*view, u"Message moved"_s));
}

TEST_F(MessageScreen, TellsNoMoreWhereALinkLeadsWhenTheFocusHasLeftTheBody) {
    open(R"(, "body_text": "x", "from": [{"email": "a@x.org"}])");
    text().setFocus();
    const auto *label = view->findChild<LinkTargetLabel *>();
    Q_EMIT view->findChild<EmailBodyView *>()->linkHovered(QUrl(u"https://x.org/"_s));
    EXPECT_TRUE(label->isVisible());
    QTest::keyClick(&text(), Qt::Key_Backtab);
    EXPECT_FALSE(label->isVisible());
}

TEST_F(MessageScreen, AlignsItsTextWithItsHeader) {
    open(R"(, "body_text": "x", "to": [{"email": "b@x.org"}])");
    const auto left = [this](const QWidget &widget, int inside) {
        return widget.mapTo(view.get(), QPoint(inside, 0)).x();
    };
    const auto labels = view->findChildren<QLabel *>();
    const auto word = std::ranges::find_if(labels, [](const QLabel *label) { return label->text() == u"To:"_s; });
    ASSERT_NE(word, labels.end());
    EXPECT_EQ(left(text(), text().characterRect(0).left()), left(**word, 0));
}

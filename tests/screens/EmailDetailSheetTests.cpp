#include "mail/screens/SourceSheet.h"
#include "screens/MessageScreenFixture.h"
#include "ui/screens/ConfirmationSheet.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

const QByteArray fromAda = R"(, "body_text": "x", "from": [{"name": "Ada", "email": "Ada@x.org"}])";

class MessageSheets : public MessageScreen {
protected:
    template <typename SheetType> SheetType *sheet() const {
        for (auto *found : view->findChildren<SheetType *>())
            if (found->isVisible())
                return found;
        return nullptr;
    }
    ConfirmationSheet &askToBlock() {
        screen->perform(MacMailAction::block);
        settle();
        return *sheet<ConfirmationSheet>();
    }
    SourceSheet &showSource(const QByteArray &json) {
        server.expect("GET", "/api/emails/source/7?folder=INBOX").json(json);
        screen->perform(MacMailAction::source);
        settle();
        return *sheet<SourceSheet>();
    }
};

} // namespace

TEST_F(MessageSheets, BlocksOnlyAfterAsking) {
    open(fromAda);
    auto &dialog = askToBlock();
    EXPECT_EQ(dialog.windowTitle(), u"Block this sender?"_s);
    EXPECT_TRUE(showsText(dialog, u"Block this sender?"_s));
    EXPECT_TRUE(showsText(dialog, u"Future messages from this sender will be blocked. "
                                  "This message will be permanently deleted."_s));
    visibleNamed<QPushButton>(dialog, u"Cancel"_s)->click();
    settle();
    EXPECT_FALSE(sheet<ConfirmationSheet>());
    EXPECT_TRUE(text().isVisible());

    auto &rule = server.expect("POST", "/api/blocked/add").answer(200);
    server.expect("POST", "/api/emails/delete").answer(200);
    visibleNamed<QPushButton>(askToBlock(), u"Block and Permanently Delete"_s)->click();
    settle();
    EXPECT_FALSE(sheet<ConfirmationSheet>());
    EXPECT_EQ(parseJSON(rule.request().body), parseJSON(R"({"type": "sender", "pattern": "ada@x.org"})"));
}

TEST_F(MessageSheets, AsksAgainAfterEscape) {
    open(fromAda);
    QTest::keyClick(&askToBlock(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(sheet<ConfirmationSheet>());
    EXPECT_TRUE(askToBlock().isVisible());
}

TEST_F(MessageSheets, ShowsTheSourceAndCopiesIt) {
    open(fromAda);
    auto &source = showSource(R"({"source": "Subject: a\r\nTo: b\r\n\r\nwords"})");
    EXPECT_EQ(source.windowTitle(), u"Email Source"_s);
    visibleNamed<QPushButton>(source, u"Copy"_s)->click();
    EXPECT_EQ(clipboard(), u"Subject: a\r\nTo: b\r\n\r\nwords"_s);
    EXPECT_EQ(screen->copiedToast->value_or(ToastMessage()).message, u"Source copied to clipboard"_s);
    QTest::keyClick(source.focusWidget(), Qt::Key_Escape);
    settle();
    EXPECT_FALSE(sheet<SourceSheet>());
    EXPECT_FALSE(screen->showSourceSheet);
    EXPECT_TRUE(showSource(R"({"source": "again"})").isVisible());
}

TEST_F(MessageSheets, SaysWhyThereIsNoSource) {
    open(fromAda);
    server.expect("GET", "/api/emails/source/7?folder=INBOX").json(R"({"error": "Gone"})", 404);
    screen->perform(MacMailAction::source);
    settle();
    const auto *headers = visibleNamed<PlainTextView>(*sheet<SourceSheet>(), u"Headers"_s);
    ASSERT_TRUE(headers);
    EXPECT_EQ(headers->text(), u"Failed to load source: Gone"_s);
}

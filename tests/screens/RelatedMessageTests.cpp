#include "mail/screens/ThreadLink.h"
#include "screens/MessageScreenFixture.h"
#include "ui/screens/DisclosureButton.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class RelatedMessage : public MessageScreen {
protected:
    void SetUp() override {
        MessageScreen::SetUp();
        server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=plan")
            .json(pageJSON(R"({"uid": 5, "subject": "Re: Plan", "from": "Bo <bo@x.org>"}, {"uid": 7})"));
        open(R"(, "subject": "Plan", "body_text": "first words")");
    }

    void openRelated() {
        visibleNamed<DisclosureButton>(*view, u"Thread (1 related)"_s)->click();
        settle();
        expectRead(5).json(R"({"uid": 5, "body_text": "second words"})");
        view->findChild<ThreadLink *>()->click();
        settle();
    }
    QAbstractButton *back() const { return visibleNamed<QAbstractButton>(*view, u"Back"_s); }
    QString focusedText() const {
        const auto *focused = qobject_cast<PlainTextView *>(QApplication::focusWidget());
        return focused ? focused->text() : QString();
    }
    /// The texts of messages that can be seen.
    QStringList visibleTexts() const {
        QStringList texts;
        for (const auto *body : view->findChildren<PlainTextView *>())
            if (body->isVisible())
                texts.append(body->text());
        return texts;
    }
};

} // namespace

TEST_F(RelatedMessage, ShowsInPlaceOfTheMessageAndTakesTheFocus) {
    EXPECT_FALSE(back());
    openRelated();
    EXPECT_EQ(visibleTexts(), QStringList{u"second words"_s});
    EXPECT_EQ(focusedText(), u"second words"_s);
    ASSERT_TRUE(back());
    QTest::keyClick(back(), Qt::Key_Space);
    settle();
    EXPECT_EQ(visibleTexts(), QStringList{u"first words"_s});
    EXPECT_EQ(focusedText(), u"first words"_s);
    EXPECT_FALSE(back());
}

TEST_F(RelatedMessage, IsLeftWithTheKeyboard) {
    openRelated();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left, Qt::AltModifier);
    settle();
    EXPECT_EQ(visibleTexts(), QStringList{u"first words"_s});
    EXPECT_EQ(focusedText(), u"first words"_s);
}

TEST_F(RelatedMessage, GoesAwayWithTheMessageThatItBelongsTo) {
    openRelated();
    open(R"(, "body_text": "third words")", 9);
    EXPECT_EQ(visibleTexts(), QStringList{u"third words"_s});
    EXPECT_EQ(focusedText(), u"third words"_s);
}

TEST_F(RelatedMessage, IsNamedInTheList) {
    visibleNamed<DisclosureButton>(*view, u"Thread (1 related)"_s)->click();
    settle();
    EXPECT_TRUE(accessibleName(*view->findChild<ThreadLink *>()).startsWith(u"Bo, Re: Plan"_s));
    EXPECT_EQ(namelessControls(*view), QStringList());
}

#include "app/screens/UnsentMessagesView.h"

#include "app/AppStateFixture.h"
#include "compose/ComposeViewModel.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/screens/Buttons.h"

#include <QLabel>
#include <QLayout>

using namespace Qt::StringLiterals;

namespace {

class UnsentBanner : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/folders").answer(500).anyNumberOfTimes();
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        beginSession();
        auto mainScreen = MainScreenState::make(state);
        view = std::make_unique<UnsentMessagesView>(mainScreen);
        settle();
    }
    void TearDown() override {
        view.reset();
        settle();
        state.reset();
        ScreenTest::TearDown();
    }
    void lose(const QString &subject) {
        state->sendOutcomes.add({.account = state->account(),
                                 .subject = subject,
                                 .error = u"Full"_s,
                                 .message = std::make_shared<ComposeViewModel>()});
        settle();
    }
    QStringList lines() const {
        QStringList texts;
        for (int row = 0; row < view->layout()->count(); ++row)
            texts.append(textOf(*view->layout()->itemAt(row)->widget()));
        return texts;
    }
    static QString textOf(QWidget &row) {
        auto *label = qobject_cast<QLabel *>(&row);
        for (auto *part : row.findChildren<QLabel *>())
            if (!part->text().isEmpty())
                label = part;
        return label ? label->text() : QString();
    }

    std::unique_ptr<UnsentMessagesView> view;
};

} // namespace

TEST_F(UnsentBanner, ShowsTheNewestThree) {
    EXPECT_FALSE(view->isVisible());
    for (const auto *subject : {u"1", u"2", u"3"})
        lose(QString::fromUtf16(subject));
    EXPECT_TRUE(view->isVisible());
    EXPECT_EQ(lines(),
              (QStringList{u"“3” was not sent: Full"_s, u"“2” was not sent: Full"_s, u"“1” was not sent: Full"_s}));
    lose(u"4"_s);
    lose(u"5"_s);
    EXPECT_EQ(lines(), (QStringList{u"“5” was not sent: Full"_s, u"“4” was not sent: Full"_s,
                                    u"“3” was not sent: Full"_s, u"and 2 more"_s}));
    visibleNamed<IconButton>(*view, u"Dismiss"_s)->click();
    settle();
    EXPECT_EQ(lines().constFirst(), u"“4” was not sent: Full"_s);
    EXPECT_EQ(lines().constLast(), u"and 1 more"_s);
}

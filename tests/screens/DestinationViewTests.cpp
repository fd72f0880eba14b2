#include "app/screens/DestinationView.h"

#include "app/AppStateFixture.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/RowsView.h"

#include <QTest>

using namespace Qt::StringLiterals;

namespace {

class Destinations : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        view = std::make_unique<DestinationView>(state);
        view->resize(700, 500);
        showActive(*view);
    }
    void TearDown() override {
        settle();
        view.reset();
        state.reset();
        ScreenTest::TearDown();
    }
    void open(std::optional<AppDestination> destination) {
        state->navigationDestination = destination;
        // The section is made in the next turn, and only then begins to load.
        deliverQueuedEvents();
        settle();
    }
    /// The list that is on show, with the number of its rows.
    std::pair<QString, int> shownList() const {
        for (const auto *list : view->findChildren<RowsView *>())
            if (list->isVisible())
                return {list->accessibleName(), list->model()->rowCount()};
        return {};
    }

    std::unique_ptr<DestinationView> view;
};

} // namespace

TEST_F(Destinations, EachOpeningReadsTheListAgain) {
    for (const QByteArray contact : {R"({"_id": "1", "email": "a@x.org"})", ""}) {
        server.expect("GET", "/api/contacts").json("{\"contacts\": [" + contact + "]}");
        open(AppDestination::contacts);
        EXPECT_EQ(shownList().second, contact.isEmpty() ? 0 : 1);
        EXPECT_TRUE(showsText(*view, u"Contacts"_s));
        // Other news are no reason to begin anew.
        state->showKeyboardShortcuts = !state->showKeyboardShortcuts;
        settle();
        open(std::nullopt);
    }
}

TEST_F(Destinations, OneSectionFollowsAnother) {
    server.expect("GET", "/api/contacts").json(R"({"contacts": [{"_id": "1", "email": "a@x.org"}]})");
    open(AppDestination::contacts);
    server.expect("GET", "/api/templates")
        .json(R"({"templates": [{"_id": "1", "name": "A"}, {"_id": "2", "name": "B"}]})");
    open(AppDestination::templates);
    EXPECT_EQ(shownList(), std::pair(u"Quick Reply Templates"_s, 2));
    EXPECT_TRUE(visibleNamed<RowsView>(*view, u"Quick Reply Templates"_s)->hasFocus());
    EXPECT_FALSE(showsText(*view, u"Contacts"_s));
}

TEST_F(Destinations, ButtonAndKeyLeadBackToTheMail) {
    for (const bool byKey : {false, true}) {
        open(AppDestination::settings);
        auto *back = visibleNamed<IconButton>(*view, u"Back to Mail"_s);
        ASSERT_TRUE(back);
        byKey ? QTest::keyClick(back, Qt::Key_Left, Qt::AltModifier) : back->click();
        settle();
        EXPECT_FALSE(state->navigationDestination.get());
    }
}

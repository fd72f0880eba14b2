#include "rules/screens/ContactListView.h"

#include "screens/SectionScreenFixture.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/SearchBar.h"

#include <QAccessible>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

class ContactScreen : public SectionScreen {
protected:
    FakeExchange &expectList(const QByteArray &ids) {
        QByteArrayList entries;
        for (const char id : ids)
            entries.append("{\"_id\": \"" + QByteArray(1, id) + "\", \"email\": \"" + id +
                           "@x.org\", \"name\": \"Name " + id + "\"}");
        return server.expect("GET", "/api/contacts").json("{\"contacts\": [" + entries.join(", ") + "]}");
    }
    void open(const QByteArray &ids) {
        expectList(ids);
        contacts = ContactListState::make();
        show(std::make_unique<ContactListView>(contacts));
    }
    SearchBar *search() const { return section->findChild<SearchBar *>(); }
    QLineEdit *field(const QString &name) const { return visibleNamed<QLineEdit>(*sheet(), name); }
    QPushButton *button(const QString &name) const { return visibleNamed<QPushButton>(*sheet(), name); }

    std::shared_ptr<ContactListState> contacts;
};

/// A way to begin editing the second contact.
struct EditingWay {
    const char *name;
    void (*take)(RowsView &rows, const QPoint &place);
};

class ContactEditing : public ContactScreen, public testing::WithParamInterface<EditingWay> {};

const EditingWay editingWays[] = {
    {"Click",
     [](RowsView &rows, const QPoint &place) { QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, place); }},
    {"Return", [](RowsView &rows, const QPoint &) { QTest::keyClick(&rows, Qt::Key_Return); }},
    {"Space", [](RowsView &rows, const QPoint &) { QTest::keyClick(&rows, Qt::Key_Space); }},
    {"Menu",
     [](RowsView &rows, const QPoint &) {
         QTest::keyClick(&rows, Qt::Key_F10, Qt::ShiftModifier);
         auto *menu = rows.findChild<QMenu *>();
         menu->actions().front()->trigger();
         menu->close();
     }},
    {"Swipe",
     [](RowsView &rows, const QPoint &) {
         QTest::keyClick(&rows, Qt::Key_Left);
         QTest::keyClick(QApplication::focusWidget(), Qt::Key_Left);
         QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
     }},
};

} // namespace

TEST_P(ContactEditing, OpensTheSheetWithTheContact) {
    open("abc");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    EXPECT_EQ(current(), u"Name b"_s);
    GetParam().take(rows(), place(1));
    settle();
    ASSERT_TRUE(sheet());
    EXPECT_EQ(sheet()->windowTitle(), u"Edit Contact"_s);
    EXPECT_EQ(field(u"Email"_s)->text(), u"b@x.org"_s);
    EXPECT_EQ(field(u"Name"_s)->text(), u"Name b"_s);
    EXPECT_TRUE(field(u"Email"_s)->hasFocus());
    press(Qt::Key_Escape);
    EXPECT_FALSE(sheet());
    EXPECT_FALSE(contacts->editingContact.get());
    EXPECT_TRUE(rows().hasFocus());
    EXPECT_EQ(current(), u"Name b"_s);
}

INSTANTIATE_TEST_SUITE_P(, ContactEditing, testing::ValuesIn(editingWays), rowName);

TEST_F(ContactScreen, ARowThatIsDraggedIsNotClicked) {
    open("ab");
    const auto row = rows().visualRect(rows().model()->index(1, 0));
    const auto drag = [&](int distance) {
        auto *viewport = rows().viewport();
        QTest::mousePress(viewport, Qt::LeftButton, {}, row.center());
        for (const int step : {distance / 2, distance})
            QTest::mouseMove(viewport, row.center() + QPoint(step, 0));
        QTest::mouseRelease(viewport, Qt::LeftButton, {}, row.center() + QPoint(distance, 0));
        settle();
    };
    drag(QApplication::startDragDistance() * 2);
    EXPECT_FALSE(sheet());
    drag(QApplication::startDragDistance() / 2);
    EXPECT_TRUE(sheet());
}

TEST_F(ContactScreen, EverythingHasAName) {
    open("ab");
    EXPECT_TRUE(showsText(*section, u"Contacts"_s));
    EXPECT_EQ(namelessControls(*section), QStringList());
    EXPECT_EQ(tabOrder(*section),
              (QStringList{u"Contacts"_s, u"Back to Mail"_s, u"Add Contact"_s, u"Search contacts..."_s}));
    auto *list = QAccessible::queryAccessibleInterface(&rows());
    EXPECT_EQ(list->text(QAccessible::Name), u"Contacts"_s);
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), u"Name b, b@x.org"_s);
    EXPECT_EQ(list->child(1)->role(), QAccessible::ListItem);
}

TEST_F(ContactScreen, EditedContactIsSavedWithReturn) {
    open("ab");
    click(1);
    settle();
    QTest::keyClick(field(u"Email"_s), Qt::Key_A, Qt::ControlModifier);
    type(u"new"_s);
    EXPECT_FALSE(button(u"Save"_s)->isEnabled());
    press(Qt::Key_Return);
    type(u"@y"_s);
    EXPECT_TRUE(button(u"Save"_s)->isEnabled());
    auto &request = server.expect("POST", "/api/contacts/update").answer(200);
    expectList("ab");
    press(Qt::Key_Return);
    settle();
    EXPECT_TRUE(request.hasArrived());
    EXPECT_FALSE(sheet());
}

TEST_F(ContactScreen, CancelledAdditionIsThereNextTime) {
    open("a");
    for (const bool isAgain : {false, true}) {
        named<IconButton>(u"Add Contact"_s)->click();
        settle();
        ASSERT_TRUE(sheet());
        EXPECT_EQ(sheet()->windowTitle(), u"Add Contact"_s);
        EXPECT_EQ(field(u"Email"_s)->text(), isAgain ? u"n"_s : QString());
        EXPECT_EQ(button(u"Add"_s)->isEnabled(), isAgain);
        if (!isAgain)
            type(u"n"_s);
        isAgain ? press(Qt::Key_Escape) : button(u"Cancel"_s)->click();
        settle();
        EXPECT_FALSE(contacts->showAdd);
    }
}

TEST_F(ContactScreen, AddedContactAppears) {
    open("a");
    named<IconButton>(u"Add Contact"_s)->click();
    settle();
    type(u"b@x.org"_s);
    server.expect("POST", "/api/contacts/add").answer(500);
    expectList("ab");
    button(u"Add"_s)->click();
    settle();
    EXPECT_FALSE(sheet());
    EXPECT_EQ(rows().model()->rowCount(), 2);
}

TEST_F(ContactScreen, DeleteKeyDeletesAndGoesOnToTheNext) {
    open("abc");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    for (const QByteArray id : {"b", "c", "a"}) {
        server.expect("DELETE", "/api/contacts/" + id).answer(200);
        QTest::keyClick(&rows(), Qt::Key_Delete);
        settle();
    }
    EXPECT_EQ(rows().model()->rowCount(), 0);
    // The list gives way to the placeholder, and with it the keyboard.
    ASSERT_TRUE(named<QPushButton>(u"Add Contact"_s));
    EXPECT_TRUE(named<QPushButton>(u"Add Contact"_s)->hasFocus());
}

TEST_F(ContactScreen, FullSwipeDeletes) {
    open("abc");
    server.expect("DELETE", "/api/contacts/b").answer(200);
    swipe(1, -500);
    settle();
    EXPECT_EQ(rows().model()->rowCount(), 2);
}

TEST_F(ContactScreen, RowIsNotPushedWhereNoActionsAre) {
    open("abc");
    swipe(1, 500);
    EXPECT_FALSE(track().isVisible());
    QTest::keyClick(&rows(), Qt::Key_Down);
    QTest::keyClick(&rows(), Qt::Key_Right);
    EXPECT_FALSE(track().isVisible());
    EXPECT_TRUE(rows().hasFocus());
    settle();
    EXPECT_FALSE(sheet());
}

TEST_F(ContactScreen, PressThatClosesATrackDoesNoMore) {
    open("abc");
    click(1);
    settle();
    press(Qt::Key_Escape);
    ASSERT_FALSE(sheet());
    swipe(1, -120);
    ASSERT_TRUE(track().isVisible());
    QTest::mouseClick(rows().viewport(), Qt::LeftButton, {}, place(1) - QPoint(200, 0));
    settle();
    EXPECT_FALSE(track().isVisible());
    EXPECT_FALSE(sheet());
}

TEST_F(ContactScreen, TypingOverTheRowsSearches) {
    open("abc");
    EXPECT_TRUE(rows().hasFocus());
    type(u"B@"_s);
    EXPECT_TRUE(search()->hasFocus());
    EXPECT_EQ(search()->text(), u"B@"_s);
    EXPECT_EQ(rows().model()->rowCount(), 1);
    press(Qt::Key_Down);
    EXPECT_TRUE(rows().hasFocus());
    press(Qt::Key_F, Qt::ControlModifier);
    EXPECT_TRUE(search()->hasFocus());
    type(u"x y"_s);
    EXPECT_TRUE(showsText(*section, u"No contact found"_s));
    press(Qt::Key_Escape);
    EXPECT_EQ(rows().model()->rowCount(), 3);
}

TEST_F(ContactScreen, TabLeadsFromTheSearchToARow) {
    open("abc");
    rows().setCurrentIndex(rows().model()->index(1, 0));
    press(Qt::Key_F, Qt::ControlModifier);
    type(u"x y"_s);
    ASSERT_FALSE(rows().isVisible());
    press(Qt::Key_Escape);
    press(Qt::Key_Tab);
    EXPECT_TRUE(rows().hasFocus());
    EXPECT_EQ(current(), u"Name a"_s);
    press(Qt::Key_Return);
    ASSERT_TRUE(sheet());
    EXPECT_EQ(field(u"Email"_s)->text(), u"a@x.org"_s);
}

TEST_F(ContactScreen, MenuOffersTheSameAsTheSwipe) {
    open("abc");
    QContextMenuEvent event(QContextMenuEvent::Mouse, place(2), rows().viewport()->mapToGlobal(place(2)));
    QCoreApplication::sendEvent(rows().viewport(), &event);
    ASSERT_TRUE(menu());
    EXPECT_EQ(menuTexts(), (QStringList{u"Edit"_s, u"Delete"_s}));
    server.expect("DELETE", "/api/contacts/c").answer(200);
    menu()->actions().back()->trigger();
    menu()->close();
    settle();
    EXPECT_EQ(rows().model()->rowCount(), 2);
}

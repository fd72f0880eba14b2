#include "rules/screens/TemplateListView.h"

#include "screens/SectionScreenFixture.h"
#include "ui/screens/Buttons.h"

#include <QAccessible>
#include <QLineEdit>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

class TemplateScreen : public SectionScreen {
protected:
    void expectList(const QByteArray &ids) {
        QByteArrayList entries;
        for (const char id : ids)
            entries.append("{\"_id\": \"" + QByteArray(1, id) + "\", \"name\": \"Name " + id +
                           "\", \"subject\": \"About\"}");
        server.expect("GET", "/api/templates").json("{\"templates\": [" + entries.join(", ") + "]}");
    }
    void open(const QByteArray &ids) {
        expectList(ids);
        templates = TemplateListState::make();
        show(std::make_unique<TemplateListView>(templates));
    }
    void openSheet() {
        named<IconButton>(u"New Template"_s)->click();
        settle();
        ASSERT_TRUE(sheet());
    }
    QPushButton *button(const QString &name) const { return visibleNamed<QPushButton>(*sheet(), name); }
    QPlainTextEdit *body() const { return visibleNamed<QPlainTextEdit>(*sheet(), u"Body"_s); }

    std::shared_ptr<TemplateListState> templates;
};

} // namespace

TEST_F(TemplateScreen, EverythingHasAName) {
    open("ab");
    EXPECT_TRUE(showsText(*section, u"Quick Reply Templates"_s));
    EXPECT_EQ(namelessControls(*section), QStringList());
    EXPECT_EQ(tabOrder(*section), (QStringList{u"Quick Reply Templates"_s, u"Back to Mail"_s, u"New Template"_s}));
    auto *list = QAccessible::queryAccessibleInterface(&rows());
    EXPECT_EQ(list->child(1)->text(QAccessible::Name), u"Name b, About"_s);
}

TEST_F(TemplateScreen, SheetIsFilledFromTheKeyboard) {
    open("");
    openSheet();
    EXPECT_EQ(sheet()->windowTitle(), u"New Template"_s);
    EXPECT_EQ(namelessControls(*sheet()), QStringList());
    EXPECT_FALSE(button(u"Save"_s)->isEnabled());
    type(u"Thanks"_s);
    press(Qt::Key_Tab);
    type(u"Re"_s);
    press(Qt::Key_Tab);
    type(u"One"_s);
    press(Qt::Key_Return);
    type(u"Two"_s);
    EXPECT_TRUE(button(u"Save"_s)->isEnabled());
    press(Qt::Key_Tab);
    EXPECT_TRUE(button(u"Cancel"_s)->hasFocus());
    press(Qt::Key_Tab);
    auto &request = server.expect("POST", "/api/templates/create").answer(200);
    expectList("a");
    press(Qt::Key_Return);
    settle();
    EXPECT_EQ(parseJSON(request.request().body),
              parseJSON(R"({"name": "Thanks", "subject": "Re", "body": "One\nTwo"})"));
    EXPECT_FALSE(sheet());
    EXPECT_EQ(rows().model()->rowCount(), 1);
}

TEST_F(TemplateScreen, CancelledSheetIsThereNextTime) {
    open("");
    openSheet();
    type(u"T"_s);
    body()->setFocus();
    type(u"Text"_s);
    press(Qt::Key_Escape);
    EXPECT_FALSE(templates->showCreate);
    openSheet();
    EXPECT_EQ(visibleNamed<QLineEdit>(*sheet(), u"Template Name"_s)->text(), u"T"_s);
    EXPECT_EQ(body()->toPlainText(), u"Text"_s);
    EXPECT_TRUE(button(u"Save"_s)->isEnabled());
}

TEST_F(TemplateScreen, DeletionKeepsTheKeyboardInTheList) {
    open("abc");
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    server.expect("POST", "/api/templates/delete/b").answer(200);
    expectList("ac");
    press(Qt::Key_Delete);
    settle();
    EXPECT_TRUE(rows().hasFocus());
    EXPECT_EQ(current(), u"Name c"_s);
    // Without another try of the server's, the row stays.
    server.expect("POST", "/api/templates/delete/c").answer(500);
    expectList("ac");
    press(Qt::Key_Left);
    EXPECT_TRUE(named<QAbstractButton>(u"Delete"_s)->hasFocus());
    press(Qt::Key_Return);
    settle();
    EXPECT_TRUE(rows().hasFocus());
    EXPECT_EQ(current(), u"Name c"_s);
}

TEST_F(TemplateScreen, FullSwipeDeletes) {
    open("abc");
    server.expect("POST", "/api/templates/delete/a").answer(200);
    expectList("bc");
    swipe(0, -500);
    settle();
    EXPECT_EQ(rows().model()->rowCount(), 2);
}

TEST_F(TemplateScreen, TemplateIsNotEdited) {
    open("a");
    click(0);
    press(Qt::Key_Return);
    settle();
    EXPECT_FALSE(sheet());
    server.assertSilence();
}

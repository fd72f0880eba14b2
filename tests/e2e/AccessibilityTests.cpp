#include "AccessibleTree.h"
#include "driver/AppDriver.h"
#include "driver/DevServerProcess.h"
#include "driver/MessageWriter.h"
#include "ui/screens/Sheet.h"

#include <QAbstractButton>
#include <QApplication>
#include <functional>
#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

void visit(const AccessibleNode &node, const std::function<void(const AccessibleNode &)> &look) {
    look(node);
    for (const auto &child : node.children)
        visit(child, look);
}

/// What a screen reader can say of the program at one moment.
class Accessibility : public testing::Test {
protected:
    Accessibility() {
        app.signIn(u"demo"_s, u"corvanite"_s);
        EXPECT_TRUE(app.waitForList());
    }

    void look() {
        AppDriver::settle();
        const auto tree = reader.read();
        ASSERT_TRUE(tree.has_value()) << "the program is not on the accessibility bus";
        root = *tree;
    }
    using Words = std::vector<std::string>;
    /// The names of what shows in roles that contain this word.
    Words names(const QString &role) const {
        Words all;
        visit(root, [&](const AccessibleNode &node) {
            if (node.isShowing && node.role.contains(role))
                all.push_back(node.name.toStdString());
        });
        return all;
    }
    /// What can be used but has no name, and what has a name but is nothing in particular.
    Words unspeakable() const {
        Words all;
        visit(root, [&](const AccessibleNode &node) {
            const bool isControl = node.isFocusable || node.role == "push button"_L1 || node.role == "list item"_L1;
            if (node.isShowing && (isControl ? node.name.isEmpty() : !node.name.isEmpty() && node.role == "filler"_L1))
                all.push_back(node.role.toStdString() + " " + node.name.toStdString());
        });
        return all;
    }
    void expectSpeakable() {
        look();
        EXPECT_THAT(unspeakable(), testing::IsEmpty());
    }
    /// Presses the button, which opens a sheet, looks at that and closes it.
    void visitSheet(const QString &button, QWidget *below, const QString &title) {
        app.click(app.find<QAbstractButton>(button, below));
        const auto sheet = [] { return qobject_cast<Sheet *>(QApplication::activeModalWidget()); };
        ASSERT_TRUE(AppDriver::waitUntil([&] { return sheet() != nullptr; })) << qPrintable(title);
        expectSpeakable();
        EXPECT_THAT(names(u"dialog"_s), testing::Contains(title.toStdString()));
        sheet()->close();
    }

    DevServerProcess server{{}};
    AppDriver app{server.address()};
    AccessibleTree reader;
    AccessibleNode root;
};

TEST_F(Accessibility, ListRowsAndToolbarsAreSaidInWords) {
    expectSpeakable();
    EXPECT_THAT(names(u"button"_s), testing::IsSupersetOf(Words{"Compose", "Get New Mail (⇧⌘N)", "Next page"}));
    EXPECT_THAT(names(u"check box"_s), testing::Contains("Filter emails"));
    EXPECT_THAT(names(u"text"_s), testing::Contains("Search emails…"));
    const auto rows = names(u"list item"_s);
    EXPECT_THAT(rows, testing::Contains(testing::Truly([](const std::string &row) {
                    return row.starts_with("Unread, Harbour Savings, Sign in to Harbour Savings");
                })));
    EXPECT_THAT(rows,
                testing::Contains(testing::Truly([](const std::string &row) { return row.starts_with("Inbox"); })));
}

TEST_F(Accessibility, TheOpenedMessageIsSaidWithItsActionsAndAttachments) {
    ASSERT_TRUE(app.openMessage(u"Invitation: Walk along Berth 4"_s));
    expectSpeakable();
    EXPECT_THAT(names(u"button"_s),
                testing::IsSupersetOf(Words{"Reply", "Reply All", "Forward", "More", "invite.ics"}));
    EXPECT_THAT(names(u"label"_s), testing::Contains("Invitation: Walk along Berth 4"));
}

TEST_F(Accessibility, TheMessageThatIsWrittenIsSaidWithItsFormats) {
    MessageWriter writer(app);
    ASSERT_TRUE(writer.open([&] { app.press(Qt::Key_N, Qt::ControlModifier); }));
    writer.pressButton(u"Cc"_s);
    writer.pressButton(u"Bcc"_s);
    writer.view()->state().viewModel->addAttachment(u"plan.pdf"_s, "%PDF", u"application/pdf"_s);
    expectSpeakable();
    EXPECT_THAT(names(u"frame"_s), testing::Contains("New Message"));
    EXPECT_THAT(names(u"text"_s), testing::IsSupersetOf(Words{"To", "Cc", "Bcc", "Subject"}));
    EXPECT_THAT(names(u"tool bar"_s), testing::Contains("Formatting"));
    EXPECT_THAT(names(u"check box"_s), testing::IsSupersetOf(Words{"Bold", "Numbers"}));
    EXPECT_THAT(names(u"button menu"_s), testing::ElementsAre("Font Size", "Text Color", "Highlight", "Insert Image"));
    EXPECT_THAT(names(u"panel"_s), testing::IsSupersetOf(Words{"Attachments", "plan.pdf, 4 B"}));
    EXPECT_THAT(names(u"push button"_s), testing::IsSupersetOf(Words{"Indent", "Outdent", "Insert Link", "Clear Format",
                                                                     "Remove plan.pdf", "Send"}));
    visitSheet(u"Insert Link"_s, writer.view(), u"Insert Link"_s);
    visitSheet(u"Templates"_s, writer.view(), u"Quick Reply Templates"_s);
    visitSheet(u"AI"_s, writer.view(), u"AI Write"_s);
}

TEST_F(Accessibility, TemplatesAndContactsAreSaidInWords) {
    struct Row {
        AppDestination destination;
        std::string item;
        QString button, sheet;
    };
    const Row table[] = {
        {AppDestination::templates, "Site visit, Site visit at the harbour", u"New Template"_s, u"New Template"_s},
        {AppDestination::contacts, "Priya Raman, priya@corvanite.example, used 15 times", u"Add Contact"_s,
         u"Add Contact"_s}};
    for (const auto &row : table) {
        app.state().navigationDestination = row.destination;
        AppDriver::waitUntil([&] { return app.find<QAbstractButton>(row.button) != nullptr; });
        expectSpeakable();
        EXPECT_THAT(names(u"list item"_s), testing::Contains(testing::StartsWith(row.item)));
        visitSheet(row.button, nullptr, row.sheet);
    }
}

} // namespace

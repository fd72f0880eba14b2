#include "AccessibleTree.h"
#include "driver/AppDriver.h"
#include "driver/DevServerProcess.h"

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
    Words namelessControls() const {
        Words all;
        visit(root, [&](const AccessibleNode &node) {
            const bool isControl = node.isFocusable || node.role == "push button"_L1 || node.role == "list item"_L1;
            if (node.isShowing && isControl && node.name.isEmpty())
                all.push_back(node.role.toStdString());
        });
        return all;
    }

    DevServerProcess server{{}};
    AppDriver app{server.address()};
    AccessibleTree reader;
    AccessibleNode root;
};

TEST_F(Accessibility, ListRowsAndToolbarsAreSaidInWords) {
    look();
    EXPECT_THAT(namelessControls(), testing::IsEmpty());
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
    look();
    EXPECT_THAT(namelessControls(), testing::IsEmpty());
    EXPECT_THAT(names(u"button"_s),
                testing::IsSupersetOf(Words{"Reply", "Reply All", "Forward", "More", "invite.ics"}));
    EXPECT_THAT(names(u"label"_s), testing::Contains("Invitation: Walk along Berth 4"));
}

} // namespace

#include "web/EditorWindow.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorReportTest : public testing::Test {
protected:
    EditorWindow window;
};

} // namespace

TEST_F(EditorReportTest, TellsWhatWasTyped) {
    window.type(u"Hello"_s);
    EXPECT_EQ(window.fetched(), u"Hello"_s);
    EXPECT_TRUE(window.waitForReport(u"Hello"_s));
    EXPECT_EQ(window.reports, QStringList{u"Hello"_s});
}

TEST_F(EditorReportTest, TellsAtOnceWhatWasPutIn) {
    window.fill(u"<b>quoted</b>"_s);
    EXPECT_EQ(window.reports, QStringList{u"<b>quoted</b>"_s});
    window.type(u"x"_s);
    window.editor->setInitialContent(u"<b>quoted</b>"_s);
    window.editor->setInitialContent({});
    EXPECT_EQ(window.content(), u"<b>xquoted</b>"_s);
}

#include "web/EditorWindow.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

class EditorReportTest : public testing::Test {
protected:
    EditorWindow window;
};

} // namespace

TEST_F(EditorReportTest, TellsWhatWasTypedOnceTheKeysRest) {
    window.evaluate(u"timers = []; setTimeout = (run, delay) => timers.push({ run, delay });"
                    "clearTimeout = id => { if (id) timers[id - 1].isOver = true; }; 0"_s);
    const auto waiting = u"timers.filter(timer => !timer.isOver && timer.delay === 300)"_s;
    window.type(u"Hello"_s);
    EXPECT_EQ(window.fetched(), u"Hello"_s) << "a message that is sent right after the last key lacks its end";
    EXPECT_EQ(window.evaluate(waiting + u".length"_s), 1);
    EXPECT_TRUE(window.reports.isEmpty());
    window.evaluate(waiting + u"[0].run()"_s);
    EXPECT_TRUE(window.waitForReport(u"Hello"_s));
    EXPECT_EQ(window.reports.size(), 1);
}

TEST_F(EditorReportTest, TellsAtOnceWhatACommandDoes) {
    window.fill(u"<p>words</p>"_s);
    window.evaluate(u"setTimeout = () => 0; selection().selectAllChildren(editor); 0"_s);
    window.ref->run(u"execCmd('bold', null);"_s);
    EXPECT_TRUE(window.waitForReport(u"<p><b>words</b></p>"_s));
}

TEST_F(EditorReportTest, TellsAtOnceWhatWasPutIn) {
    window.fill(u"<b>quoted</b>"_s);
    EXPECT_EQ(window.reports, QStringList{u"<b>quoted</b>"_s});
    window.type(u"x"_s);
    window.editor->setInitialContent(u"<b>quoted</b>"_s);
    window.editor->setInitialContent({});
    EXPECT_EQ(window.fetched(), u"<b>xquoted</b>"_s);
}

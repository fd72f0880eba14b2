#include "web/EditorWindow.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

TEST(EditorScrollBar, StandsBesideALongTextOnly) {
    EditorWindow window;
    const auto width = u"innerWidth - document.documentElement.clientWidth"_s;
    EXPECT_EQ(window.evaluate(width), 0);
    window.fill(u"<p>line</p>"_s.repeated(60));
    EXPECT_EQ(window.evaluate(width), 12);
}

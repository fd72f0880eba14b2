#include "web/MailColumn.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct ScriptRow {
    const char *name;
    const char *html;
};

/// Each would turn the page red.
class MailScript : public testing::TestWithParam<ScriptRow> {};

} // namespace

TEST_P(MailScript, NeverRuns) {
    MailColumn column;
    const auto red =
        u"document.body.style.background=document.body.firstElementChild.style.background=&quot;red&quot;"_s;
    const auto html = QString::fromLatin1(GetParam().html).replace(u"RED"_s, red);
    column.show(u"<div style='height:200px;background:#00ff00'>x</div>"_s + html + u"<p style='height:200px'>"_s);
    ASSERT_TRUE(column.waitForColor({400, 200}, QColor(0, 255, 0)));
    column.click({400, 250});
    column.show(u"<div style='height:200px;background:#0000ff'>x</div>"_s + html);
    ASSERT_TRUE(column.waitForColor({400, 200}, QColor(0, 0, 255)));
    EXPECT_TRUE(column.links.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(
    , MailScript,
    testing::Values(ScriptRow{"Element", "<script>document.body.firstElementChild.style.background='red'</script>"},
                    ScriptRow{"ErrorHandler", "<img src=data:x onerror=\"RED\">"},
                    ScriptRow{"Animation", "<style>@keyframes a{}</style><p style='animation:a 1s' "
                                           "onanimationstart=\"RED\">x"},
                    ScriptRow{"Toggle", "<details open ontoggle=\"RED\">x</details>"},
                    ScriptRow{"Link", "<a style='display:block;height:100px' href=\"javascript:RED\">x</a>"},
                    ScriptRow{"Click", "<p style='height:100px' onclick=\"RED\">x</p>"},
                    ScriptRow{"Frame",
                              "<iframe srcdoc=\"<script>parent.document.body.style.background='red'</script>\">"
                              "</iframe>"}),
    [](const auto &row) { return std::string(row.param.name); });

TEST(MailMessages, CannotPretendToBeTheProgramsOwn) {
    MailColumn column;
    column.show(u"x<script>window.webkit.messageHandlers.heightHandler.postMessage(5000);"
                "qt.webChannelTransport.send('{}')</script>"_s);
    EXPECT_EQ(column.body->contentHeight(), 100);
}

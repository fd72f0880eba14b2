#include "mail/HTMLPlainText.h"

#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

struct TextRow {
    const char *name;
    QString html;
    QString text;
};

class HTMLPlainText : public testing::TestWithParam<TextRow> {};

} // namespace

TEST_P(HTMLPlainText, IsWhatAPersonWouldRead) {
    EXPECT_EQ(plainTextFromHTML(GetParam().html), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    , HTMLPlainText,
    testing::Values(
        TextRow{"Paragraphs", u"<p>One\n  two</p><p>Three<br>four</p>"_s, u"One two\n\nThree\nfour"_s},
        TextRow{"InvisibleParts", u"<style>p{}</style><script>x<y</script><!-- <b> -->a<title>t</title>"_s, u"a"_s},
        TextRow{"UnclosedScript", u"a<script>alert('<p>')"_s, u"a"_s},
        TextRow{"Entities", u"&lt;b&gt; &amp;amp; &#8364;&#x20AC;&nbsp;&unknown; &#0;&#x110000;&"_s,
                u"<b> &amp; €€ &unknown; &"_s},
        TextRow{"Surrogates", u"&#128512;"_s, u"😀"_s},
        TextRow{"Rows", u"<table><tr><td>a</td><td>c</td></tr><tr><td>b</td></tr></table>"_s, u"a c\n\nb"_s},
        TextRow{"EmptyAnchors", u"<a href='http://x'>link</a>"_s, u"link"_s}, TextRow{"Empty", {}, {}}),
    rowName);

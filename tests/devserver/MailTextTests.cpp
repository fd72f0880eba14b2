#include "fill/FillMaildir.h"
#include "maildir/MaildirName.h"
#include "maildir/MaildirTree.h"
#include "mime/HTMLText.h"
#include "mime/TextDecoding.h"

#include "RunningServer.h"

#include <gtest/gtest.h>

namespace {

TEST(HTMLTextTest, OnlyWhatAReaderSeesRemains) {
    const std::vector<std::pair<std::string, std::string>> cases{
        {"<p>one</p><p>two</p>", "one\n\ntwo"},
        {"a<br>b<BR/>c", "a\nb\nc"},
        {"<style>p { color: red }</style><script>alert('<p>')</script>text", "text"},
        {"<head><title>Title</title></head><body>body</body>", "body"},
        {"<!-- hidden <b> -->shown", "shown"},
        {"<!DOCTYPE html>shown", "shown"},
        {"fish &amp; chips &lt;3 &#8364; &#x20AC; &nbsp; &eacute;", "fish & chips <3 € € é"},
        {"AT&T &unknown; & more", "AT&T &unknown; & more"},
        {"&#0;&#xD800;&#99999999999;", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
        {"1 < 2 and 3 > 2", "1 < 2 and 3 > 2"},
        {"many   blanks\n\tand\r\nlines", "many blanks and lines"},
        {"cut <a href=\"x", "cut"},
        {"<script>never closed", ""},
        {"<", "<"},
        {"&&&&&lt", "&&&&&lt"},
        {"", ""},
    };
    for (const auto &[html, text] : cases)
        EXPECT_EQ(textOfHTML(html), text) << html;
}

TEST(TextDecodingTest, TextIsCutCleanedAndFoldedByCharacters) {
    EXPECT_EQ(firstCharacters("äöü", 2), "äö");
    EXPECT_EQ(firstCharacters("ab", 5), "ab");
    EXPECT_EQ(singleLine(" a\r\n\tb\x01 c "), "a b c");
    EXPECT_EQ(foldCase("GRÖSSE"), foldCase("größe"));
}

TEST(MaildirNameTest, FlagsAreKeptInOrderBehindTheBase) {
    MaildirName name("1.x,S=12:2,RS");
    EXPECT_EQ(name.base, "1.x,S=12");
    name.set('F', true);
    name.set('F', true);
    name.set('S', false);
    EXPECT_EQ(name.fileName(), "1.x,S=12:2,FR");
    EXPECT_EQ(MaildirName("1.plain").fileName(), "1.plain:2,");
    EXPECT_NE(uniqueMaildirBase(), uniqueMaildirBase());
}

TEST(FillMaildirTest, AsManyMessagesAsWantedAreWritten) {
    const TemporaryFolder folder;
    fillMaildir({100, folder.path() / "Maildir"}, std::chrono::system_clock::now());
    EXPECT_EQ(MaildirTree::scan(folder.path() / "Maildir").size(), 100U);
}

} // namespace

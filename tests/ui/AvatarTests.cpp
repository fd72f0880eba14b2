#include "support/CoreTest.h"
#include "ui/Avatar.h"

using namespace Qt::StringLiterals;

namespace {

struct AvatarCase {
    const char *name;
    QString person;
    QString initials;
    QString color;
};

class AvatarTest : public testing::TestWithParam<AvatarCase> {};

TEST_P(AvatarTest, StandsForTheName) {
    EXPECT_EQ(avatarInitials(GetParam().person), GetParam().initials);
    EXPECT_EQ(avatarColorForName(GetParam().person), GetParam().color);
}

INSTANTIATE_TEST_SUITE_P(Names, AvatarTest,
                         testing::Values(AvatarCase{"Empty", QString(), u"?"_s, u"#1a73e8"_s},
                                         AvatarCase{"OneWord", u"Bob"_s, u"B"_s, u"#46bdc6"_s},
                                         AvatarCase{"TwoWords", u"Anna Weber"_s, u"AW"_s, u"#1a73e8"_s},
                                         AvatarCase{"FirstAndLastOfManyAndANegativeHash",
                                                    u"Maximiliane Alexandra von Hohenstein"_s, u"MH"_s, u"#5bb974"_s},
                                         AvatarCase{"HashThatWrapsAround", u"zzzzzzzzzzzzzzzz"_s, u"Z"_s, u"#24c1e0"_s},
                                         AvatarCase{"Accents", u"Émile Zola"_s, u"ÉZ"_s, u"#24c1e0"_s},
                                         AvatarCase{"NoSpacesInTheScript", u"李小龙"_s, u"李"_s, u"#1a73e8"_s},
                                         AvatarCase{"BeyondTheFirstPlane", u"🦊 Fox"_s, u"🦊F"_s, u"#ea4335"_s}),
                         rowName);

struct InitialsCase {
    const char *name;
    QString person;
    QString initials;
};

class InitialsTest : public testing::TestWithParam<InitialsCase> {};

TEST_P(InitialsTest, AreWhatAPersonSeesAsCharacters) {
    EXPECT_EQ(avatarInitials(GetParam().person), GetParam().initials);
}

INSTANTIATE_TEST_SUITE_P(Names, InitialsTest,
                         testing::Values(InitialsCase{"BlanksAlone", u"   "_s, u"?"_s},
                                         InitialsCase{"ManyBlanks", u"  ada   lovelace "_s, u"AL"_s},
                                         InitialsCase{"TabIsNoBlank", u"ada\tlovelace"_s, u"A"_s},
                                         InitialsCase{"CombiningAccent", u"e\u0301mile"_s, u"E\u0301"_s},
                                         InitialsCase{"JoinedEmoji", u"👩‍💻 dev"_s, u"👩‍💻D"_s},
                                         InitialsCase{"Flag", u"🇨🇭 team"_s, u"🇨🇭T"_s},
                                         InitialsCase{"CaseThatGrows", u"ßander"_s, u"SS"_s}),
                         rowName);

TEST(AvatarImageTest, ReadsDataURLsAndPlainBase64AndNothingElse) {
    const QString pixel =
        u"iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk+M9QDwADhgGAWjR9awAAAABJRU5ErkJggg=="_s;
    EXPECT_EQ(avatarImage(u"data:image/png;base64,"_s + pixel).size(), QSize(1, 1));
    EXPECT_EQ(avatarImage(u"data:image/jpeg;base64,"_s + pixel).size(), QSize(1, 1));
    EXPECT_EQ(avatarImage(pixel).size(), QSize(1, 1));
    EXPECT_TRUE(avatarImage(u"data:image/png;base64,bm90IGEgcGljdHVyZQ=="_s).isNull());
    EXPECT_TRUE(avatarImage(u"https://example.org/me.png"_s).isNull());
}

} // namespace

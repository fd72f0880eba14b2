#include "support/CoreTest.h"
#include "ui/HexColor.h"

using namespace Qt::StringLiterals;

namespace {

struct HexColorCase {
    const char *name;
    QString text;
    QRgb argb;
};

class HexColorTest : public testing::TestWithParam<HexColorCase> {};

TEST_P(HexColorTest, ReadsTheColour) {
    EXPECT_EQ(colorFromHex(GetParam().text).rgba(), GetParam().argb) << qPrintable(GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(Cases, HexColorTest,
                         testing::Values(HexColorCase{"SixDigits", u"#2563eb"_s, 0xff2563eb},
                                         HexColorCase{"UpperCaseWithoutHash", u"2563EB"_s, 0xff2563eb},
                                         HexColorCase{"NoiseAtBothEnds", u"  ##(2563eb); "_s, 0xff2563eb},
                                         HexColorCase{"ThreeDigitsAreDoubled", u"#25e"_s, 0xff2255ee},
                                         HexColorCase{"EightDigitsBeginWithAlpha", u"#802563eb"_s, 0x802563eb},
                                         HexColorCase{"FullyTransparent", u"00ffffff"_s, 0x00ffffff},
                                         HexColorCase{"FourDigits", u"#2563"_s, 0xff000000},
                                         HexColorCase{"SevenDigits", u"#2563ebf"_s, 0xff000000},
                                         HexColorCase{"NineDigits", u"#ff2563ebf"_s, 0xff000000},
                                         HexColorCase{"Empty", QString(), 0xff000000},
                                         HexColorCase{"HashAlone", u"#"_s, 0xff000000},
                                         HexColorCase{"NotHexadecimal", u"orange"_s, 0xff000000},
                                         HexColorCase{"LettersOfAnotherScript", u"д25563"_s, 0xff000000}),
                         rowName);

} // namespace

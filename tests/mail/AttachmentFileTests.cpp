#include "mail/AttachmentFileName.h"
#include "mail/AttachmentPreviewFolder.h"
#include "mail/AttachmentText.h"
#include "support/CoreTest.h"

#include <QDir>
#include <QFileInfo>
#include <sys/stat.h>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

struct NameRow {
    const char *name;
    QString given, safe;
};

class SafeFileNames : public CoreTest, public testing::WithParamInterface<NameRow> {};

const NameRow names[] = {
    {"Ordinary", u"offer 2026.pdf"_s, u"offer 2026.pdf"_s},
    {"Slash", u"../../etc/passwd"_s, u".._.._etc_passwd"_s},
    {"Backslash", u"C:\\boot.ini"_s, u"C__boot.ini"_s},
    {"ThreeSlashes", u"///"_s, u"___"_s},
    {"Dot", u"."_s, u"attachment"_s},
    {"TwoDots", u" .. "_s, u"attachment"_s},
    {"ThreeDots", u"..."_s, u"..."_s},
    {"Empty", QString(), u"attachment"_s},
    {"Blanks", u" \u00a0 "_s, u"attachment"_s},
    {"BlanksAround", u"  a b \u2003"_s, u"a b"_s},
    {"ControlCharacters", u"a\nb\0c\u007f\u0085d"_s, u"a_b_c__d"_s},
    {"ReversedExtension", u"photo\u202egpj.exe"_s, u"photo_gpj.exe"_s},
    {"OutsideOfTheFirstPlane", u"\U0001F600/\u00fc"_s, u"\U0001F600_\u00fc"_s},
};

struct TextRow {
    const char *name;
    QByteArray bytes;
    QString text;
};

class AttachmentTexts : public CoreTest, public testing::WithParamInterface<TextRow> {};

const TextRow texts[] = {
    {"Empty", "", QString()},
    {"UTF8", "gr\xc3\xbc\xc3\x9f", u"grüß"_s},
    {"UTF8Mark", "\xef\xbb\xbfx", u"x"_s},
    {"UTF16LittleEndian", QByteArray("\xff\xfe\xfc\0", 4), u"ü"_s},
    {"UTF16BigEndian", QByteArray("\xfe\xff\0\xfc", 4), u"ü"_s},
    {"Latin1", "gr\xfc\xdf", u"grüß"_s},
    {"LineEnds", "a\r\nb\rc\nd", u"a\nb\nc\nd"_s},
};

class PreviewFolder : public CoreTest {
protected:
    QString store(const QString &name, const QByteArray &bytes = "x") { return await(folder.store(name, bytes)); }
    static mode_t modeOf(const QString &path) {
        struct stat status {};
        stat(QFile::encodeName(path).constData(), &status);
        return status.st_mode & 07777;
    }

    const QString base = temporaryPath(u"new/CorvaniteAttachmentPreviews"_s);
    AttachmentPreviewFolder folder{base};
    ManualClock clock{QDateTime::currentDateTime()};
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Names, SafeFileNames, testing::ValuesIn(names), rowName);
TEST_P(SafeFileNames, CannotLeaveTheirFolder) {
    EXPECT_EQ(safeFileName(GetParam().given), GetParam().safe);
}

INSTANTIATE_TEST_SUITE_P(Texts, AttachmentTexts, testing::ValuesIn(texts), rowName);
TEST_P(AttachmentTexts, AreReadInTheirEncoding) {
    EXPECT_EQ(attachmentText(GetParam().bytes), GetParam().text);
}

TEST_F(PreviewFolder, KeepsCopiesFromOtherUsers) {
    const auto file = store(u"a/b.txt"_s, "content");
    EXPECT_EQ(QFileInfo(file).fileName(), u"a_b.txt"_s);
    EXPECT_EQ(QFileInfo(file).dir().dirName().size(), 36) << "not a folder of its own";
    EXPECT_EQ(modeOf(base), mode_t(0700));
    EXPECT_EQ(modeOf(QFileInfo(file).path()), mode_t(0700));
    QFile written(file);
    ASSERT_TRUE(written.open(QIODevice::ReadOnly));
    EXPECT_EQ(written.readAll(), "content");
    EXPECT_NE(store(u"a/b.txt"_s), file);
}

TEST_F(PreviewFolder, ShutsAFolderThatStoodOpen) {
    ASSERT_TRUE(QDir().mkpath(base));
    ASSERT_TRUE(QFile::setPermissions(base, QFile::Permissions(0x7777)));
    store(u"a"_s);
    EXPECT_EQ(modeOf(base), mode_t(0700));
}

TEST_F(PreviewFolder, DoesNotFollowALinkThatStandsInItsPlace) {
    const auto elsewhere = temporaryPath(u"elsewhere"_s);
    ASSERT_TRUE(QDir().mkpath(elsewhere) && QDir().mkpath(QFileInfo(base).path()));
    ASSERT_TRUE(QFile::link(elsewhere, base));
    EXPECT_FALSE(store(u"a"_s).startsWith(base + u'/'));
    EXPECT_TRUE(QDir(elsewhere).isEmpty());
}

TEST_F(PreviewFolder, ShortensANameThatNoFileSystemTakes) {
    const auto file = store(QString(300, u'ä') + u".pdf"_s);
    EXPECT_TRUE(file.endsWith(u"ä.pdf"_s));
    EXPECT_TRUE(QFileInfo::exists(file));
}

TEST_F(PreviewFolder, SweepsWhatIsOlderThanADayAndNotOpen) {
    const auto open = store(u"open"_s);
    const auto closed = store(u"closed"_s);
    QFile stray(base + u"/.stray"_s);
    ASSERT_TRUE(stray.open(QIODevice::WriteOnly));
    folder.keep(open);

    // A little less than a day: the copies are a few moments old.
    clock.advance(24h - 1min);
    store(u"next"_s);
    EXPECT_TRUE(QFileInfo::exists(closed));

    clock.advance(2min);
    const auto last = store(u"last"_s);
    EXPECT_FALSE(QFileInfo::exists(QFileInfo(closed).path()));
    EXPECT_FALSE(stray.exists());
    EXPECT_TRUE(QFileInfo::exists(open));
    EXPECT_TRUE(QFileInfo::exists(last));

    folder.release(open);
    store(u"after closing"_s);
    EXPECT_FALSE(QFileInfo::exists(open));
}

TEST_F(PreviewFolder, SaysWhyItCannotBeUsed) {
    QFile file(temporaryPath(u"new"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(failureOf(folder.store(u"a"_s, "x")), u"The folder for temporary files cannot be used."_s);
}

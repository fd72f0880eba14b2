#include "compose/AttachmentFile.h"
#include "compose/ComposeFixture.h"

#include <QDir>
#include <QFile>
#include <QSemaphore>
#include <QThreadPool>
#include <sys/stat.h>
#include <thread>

using namespace Qt::StringLiterals;

namespace {

class Attaching : public ComposeFixture {
protected:
    void SetUp() override { open(); }

    QUrl file(const QString &name, const QByteArray &content = "content") {
        QFile target(temporaryPath(name));
        EXPECT_TRUE(target.open(QFile::WriteOnly) && target.write(content) == content.size());
        return QUrl::fromLocalFile(target.fileName());
    }
    /// Takes no room on the disk.
    QUrl largeFile(const QString &name, qint64 size) {
        QFile target(temporaryPath(name));
        EXPECT_TRUE(target.open(QFile::WriteOnly) && target.resize(size));
        return QUrl::fromLocalFile(target.fileName());
    }
    void attach(const QList<QUrl> &urls) {
        screen->attachFiles(urls);
        settle();
    }
    QStringList names() const {
        QStringList result;
        for (const auto &attachment : screen->viewModel->attachments.get())
            result.append(attachment.filename);
        return result;
    }
};

struct NamedFile {
    const char *name;
    QString filename, attached, type;
};

class AttachedNames : public Attaching, public testing::WithParamInterface<NamedFile> {};

const NamedFile namedFiles[] = {
    {"Text", u"a.txt"_s, u"a.txt"_s, u"text/plain"_s},
    {"UpperCase", u"a.PDF"_s, u"a.PDF"_s, u"application/pdf"_s},
    {"Picture", u"Zoë 1.jpeg"_s, u"Zoë 1.jpeg"_s, u"image/jpeg"_s},
    {"OnlyTheLastExtension", u"a.txt.gz"_s, u"a.txt.gz"_s, u"application/gzip"_s},
    {"NoExtension", u"Makefile"_s, u"Makefile"_s, u"application/octet-stream"_s},
    {"UnknownExtension", u"a.qqq"_s, u"a.qqq"_s, u"application/octet-stream"_s},
    {"Separators", u"a\\b:c\nd.txt"_s, u"a_b_c_d.txt"_s, u"text/plain"_s},
    {"Blanks", u" a.txt "_s, u"a.txt"_s, u"text/plain"_s},
    {"OnlyBlanks", u"  "_s, u"attachment"_s, u"application/octet-stream"_s},
    {"PercentSigns", u"50%20#?.txt"_s, u"50%20#?.txt"_s, u"text/plain"_s},
};

struct BadFile {
    const char *name;
    /// Makes it below the given folder and returns its address.
    std::function<QUrl(const QDir &)> make;
    QString attachedName, error;
};

class BadFiles : public Attaching, public testing::WithParamInterface<BadFile> {};

QUrl local(const QDir &folder, const QString &name) {
    return QUrl::fromLocalFile(folder.filePath(name));
}

const BadFile badFiles[] = {
    {"Vanished", [](const QDir &folder) { return local(folder, u"gone.txt"_s); }, u"gone.txt"_s,
     u"No such file or directory"_s},
    {"Folder",
     [](const QDir &folder) {
         EXPECT_TRUE(folder.mkdir(u"photos"_s));
         return QUrl(local(folder, u"photos"_s).toString() + u'/');
     },
     u"photos"_s, u"Is a directory"_s},
    {"Pipe",
     [](const QDir &folder) {
         EXPECT_EQ(::mkfifo(QFile::encodeName(folder.filePath(u"pipe"_s)).constData(), 0600), 0);
         return local(folder, u"pipe"_s);
     },
     u"pipe"_s, u"Not a regular file"_s},
    {"Device", [](const QDir &) { return QUrl::fromLocalFile(u"/dev/zero"_s); }, u"zero"_s, u"Not a regular file"_s},
    {"CircleOfLinks",
     [](const QDir &folder) {
         EXPECT_TRUE(QFile::link(folder.filePath(u"circle"_s), folder.filePath(u"circle"_s)));
         return local(folder, u"circle"_s);
     },
     u"circle"_s, u"Too many levels of symbolic links"_s},
    {"Unreadable", [](const QDir &) { return QUrl::fromLocalFile(u"/proc/self/mem"_s); }, u"mem"_s,
     u"Input/output error"_s},
    {"Remote", [](const QDir &) { return QUrl(u"https://example.test/x/a.png"_s); }, u"a.png"_s,
     u"Only files on this computer can be attached."_s},
};

} // namespace

TEST_P(AttachedNames, AreCleanAndGiveTheType) {
    attach({file(GetParam().filename)});
    ASSERT_EQ(names(), QStringList{GetParam().attached});
    EXPECT_EQ(message().attachments->front().contentType, GetParam().type);
    EXPECT_EQ(message().attachments->front().data, "content");
    EXPECT_EQ(error(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(, AttachedNames, testing::ValuesIn(namedFiles), rowName);

TEST_P(BadFiles, AreNamedAndTheOthersGoOn) {
    const auto &row = GetParam();
    const QDir folder(temporaryPath({}));
    attach({file(u"before.txt"_s), row.make(folder), file(u"after.txt"_s)});
    EXPECT_EQ(error(), u"Could not attach "_s + row.attachedName + u": "_s + row.error);
    EXPECT_EQ(names(), (QStringList{u"before.txt"_s, u"after.txt"_s}));
}

INSTANTIATE_TEST_SUITE_P(, BadFiles, testing::ValuesIn(badFiles), rowName);

TEST_F(Attaching, NoFileMayPassTheLimitAlone) {
    attach({largeFile(u"most.bin"_s, attachmentsLimit)});
    EXPECT_EQ(names(), QStringList{u"most.bin"_s});
    message().removeAttachment(message().attachments->front().id);
    attach({largeFile(u"more.bin"_s, attachmentsLimit + 1), largeFile(u"huge.bin"_s, qint64(1) << 40)});
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(error(), u"Could not attach huge.bin: Attachments must be 25 MB or smaller."_s);
}

TEST_F(Attaching, AFileThatWouldPassTheTotalIsSkipped) {
    attach({file(u"small.txt"_s), largeFile(u"large.bin"_s, attachmentsLimit), file(u"last.txt"_s)});
    EXPECT_EQ(names(), (QStringList{u"small.txt"_s, u"last.txt"_s}));
    EXPECT_EQ(error(), u"Attachments can total up to 25 MB."_s);
}

TEST_F(Attaching, CarriedAttachmentsCountLast) {
    message().populateForwardedAttachments(answeredLetter());
    attach({largeFile(u"large.bin"_s, attachmentsLimit)});
    EXPECT_EQ(names(), QStringList());
    EXPECT_EQ(error(), u"Attachments must total 25 MB or less."_s);
}

TEST_F(Attaching, SeveralGroupsCannotPassTheLimitTogether) {
    screen->attachFiles({largeFile(u"1.bin"_s, attachmentsLimit / 2 + 1)});
    screen->attachFiles({largeFile(u"2.bin"_s, attachmentsLimit / 2 + 1)});
    settle();
    EXPECT_EQ(names().size(), 1);
    EXPECT_EQ(error(), u"Attachments can total up to 25 MB."_s);
}

TEST_F(Attaching, AFileThatGrowsIsReadUpToSomePlace) {
    const auto url = file(u"log.txt"_s, QByteArray(1 << 20, 'x'));
    std::atomic_bool isRead = false;
    std::thread writer([&] {
        QFile log(url.toLocalFile());
        EXPECT_TRUE(log.open(QFile::Append | QFile::Unbuffered));
        while (!isRead && log.size() < 2 * attachmentsLimit)
            log.write(QByteArray(1 << 16, 'x'));
    });
    for (int round = 1; round <= 5; ++round) {
        try {
            const auto data = readAttachmentFile(url).data;
            EXPECT_GE(data.size(), 1 << 20);
            EXPECT_EQ(data.count('x'), data.size());
        } catch (const Error &error) {
            EXPECT_EQ(error.description(), u"Attachments must be 25 MB or smaller."_s);
        }
    }
    isRead = true;
    writer.join();
}

TEST_F(Attaching, FilesWithoutALengthAreReadToTheirEnd) {
    attach({QUrl::fromLocalFile(u"/proc/self/status"_s)});
    ASSERT_EQ(names(), QStringList{u"status"_s});
    EXPECT_TRUE(message().attachments->front().data.startsWith("Name:"));
}

TEST_F(Attaching, NothingIsSentWhileAFileIsBeingRead) {
    address();
    EXPECT_TRUE(screen->canSend());
    auto &pool = *QThreadPool::globalInstance();
    const auto threads = pool.maxThreadCount();
    QSemaphore disk;
    pool.setMaxThreadCount(1);
    pool.start([&] { disk.acquire(); });
    screen->attachFiles({file(u"a.txt"_s)});
    EXPECT_FALSE(screen->canSend());
    await(screen->send());
    disk.release();
    settle();
    pool.setMaxThreadCount(threads);
    EXPECT_TRUE(screen->canSend());
    auto &exchange = expectSend().json("{}");
    await(screen->send());
    EXPECT_TRUE(exchange.request().body.contains(R"("name":"a.txt")"));
}

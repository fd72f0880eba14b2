#include "mail/AttachmentDownloads.h"

#include "app/AppStateFixture.h"
#include "mail/MailAnswers.h"

using namespace Qt::StringLiterals;

namespace {

class Downloads : public CoreTest, protected AppStateFixture {
protected:
    void SetUp() override {
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        beginSession();
        watch(*downloads);
    }
    void TearDown() override {
        settle();
        downloads.reset();
        state.reset();
        CoreTest::TearDown();
    }

    void watch(AttachmentDownloads &model) {
        QObject::connect(&model, &AttachmentDownloads::failed, [this](const QString &text) { told.append(text); });
        QObject::connect(&model, &AttachmentDownloads::savePanelRequested,
                         [this](const QString &name, const QByteArray &bytes) {
                             told.append(u"save "_s + name + u' ' + QString::fromUtf8(bytes));
                         });
        QObject::connect(&model, &AttachmentDownloads::previewRequested,
                         [this](const QString &name, const QString &mime, const QByteArray &bytes) {
                             told.append(u"preview %1 %2 %3"_s.arg(name, mime, QString::fromUtf8(bytes)));
                         });
    }
    static EmailAttachment attachment(const QString &type) {
        return {.filename = u"a b.x"_s, .contentType = u"text/other"_s, .type = type, .partNum = u"1.2"_s};
    }
    FakeExchange &expectFile() {
        return server.expect("GET", "/api/emails/attachment?filename=a%20b.x&folder=INBOX&part=1.2&uid=7");
    }
    FakeExchange &expectArchive() {
        return server.expect("GET", "/api/emails/attachments/zip?folder=INBOX&name=attachments_7&uid=7");
    }

    const EmailWindowRef message{7, u"INBOX"_s};
    std::shared_ptr<AttachmentDownloads> downloads = AttachmentDownloads::make(state);
    QStringList told;
};

struct OpenRow {
    const char *name;
    QString type, told;
};

class Opening : public Downloads, public testing::WithParamInterface<OpenRow> {};

const OpenRow openings[] = {
    {"Image", u"IMAGE/PNG"_s, u"preview a b.x image/png file"_s},
    {"Text", u"text/csv"_s, u"preview a b.x text/csv file"_s},
    {"PDF", u"application/pdf"_s, u"preview a b.x application/pdf file"_s},
    {"AlmostPDF", u"application/pdfx"_s, u"save a b.x file"_s},
    {"WordProcessor", u"application/msword"_s, u"save a b.x file"_s},
};

struct FailureRow {
    const char *name;
    void (*answer)(FakeExchange &);
    QString told;
};

class Failing : public Downloads, public testing::WithParamInterface<FailureRow> {};

const FailureRow failures[] = {
    {"NotFound", [](FakeExchange &e) { e.json(R"({"error": "No such part"})", 404); },
     u"Download failed: Download failed"_s},
    {"SessionOver", [](FakeExchange &e) { e.answer(401); }, u"Download failed: Download failed"_s},
    {"NoHTTP", [](FakeExchange &e) { e.raw("nonsense\r\n\r\n").closing(); }, {}},
    {"CutOff", [](FakeExchange &e) { e.raw("HTTP/1.1 200 OK\r\nContent-Length: 9\r\n\r\nshort").closing(); }, {}},
};

struct ProgressRow {
    const char *name;
    qint64 received, total;
    double fraction;
    QString text;
};

class ProgressTexts : public Downloads, public testing::WithParamInterface<ProgressRow> {};

const ProgressRow progress[] = {
    {"Nothing", 0, 0, 0, QString()},
    {"NothingOfUnknown", 0, -1, 0, QString()},
    {"Unknown", 1536, -1, 0, u"1.5 KB"_s},
    {"Beginning", 0, 1048576, 0, u"0 B / 1.0 MB · 0%"_s},
    {"Part", 1023, 1048576, 0.999, u"1023 B / 1.0 MB · 99%"_s},
    {"Whole", 1024, 1024, 1, u"1.0 KB / 1.0 KB · 100%"_s},
};

} // namespace

INSTANTIATE_TEST_SUITE_P(Types, Opening, testing::ValuesIn(openings), rowName);
TEST_P(Opening, PreviewsWhatItCanAndOffersToSaveTheRest) {
    expectFile().answer(200, "file");
    downloads->open(message, attachment(GetParam().type));
    settle();
    EXPECT_EQ(told, QStringList{GetParam().told});
    EXPECT_EQ(downloads->downloadingName.get(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Answers, Failing, testing::ValuesIn(failures), rowName);
TEST_P(Failing, TellsWhyAndOffersNothing) {
    GetParam().answer(expectFile());
    GetParam().answer(expectArchive());
    downloads->open(message, attachment(u"image/png"_s));
    downloads->saveAll(message);
    settle();
    ASSERT_EQ(told.size(), 2);
    for (const auto &text : told) {
        EXPECT_TRUE(text.startsWith(u"Download failed: "_s)) << text.toStdString();
        EXPECT_GT(text.size(), 17);
        EXPECT_TRUE(GetParam().told.isEmpty() || text == GetParam().told) << text.toStdString();
    }
    EXPECT_EQ(downloads->downloadingName.get(), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Counts, ProgressTexts, testing::ValuesIn(progress), rowName);
TEST_P(ProgressTexts, SayHowFarItHasCome) {
    downloads->downloadedBytes = GetParam().received;
    downloads->totalBytes = GetParam().total;
    downloads->downloadProgress = GetParam().fraction;
    EXPECT_EQ(downloads->progressText(), GetParam().text);
}

TEST_F(Downloads, SavesAFileThatCouldBePreviewed) {
    expectFile().answer(200, "file");
    downloads->save(message, attachment(u"image/png"_s));
    settle();
    EXPECT_EQ(told, QStringList{u"save a b.x file"_s});
}

TEST_F(Downloads, SavesAllAsOneArchive) {
    auto &archive = expectArchive().held();
    downloads->saveAll(message);
    EXPECT_EQ(downloads->downloadingName.get(), u"attachments_7.zip"_s);
    archive.sendHead(200, "application/zip", "Content-Length: 3\r\n");
    archive.send("ZIP");
    settle();
    EXPECT_EQ(told, QStringList{u"save attachments_7.zip ZIP"_s});
}

TEST_F(Downloads, OffersNothingWhereThereAreNoBytes) {
    expectFile().answer(200);
    downloads->save(message, attachment(u"image/png"_s));
    settle();
    EXPECT_EQ(told, QStringList());
    EXPECT_EQ(downloads->downloadingName.get(), std::nullopt);
}

TEST_F(Downloads, LeaveTheBarAloneWhenTheLengthIsUnknown) {
    auto &file = expectFile().held();
    downloads->save(message, attachment(u"image/png"_s));
    file.sendHead(200, "image/png");
    file.send("12345");
    ASSERT_TRUE(spinUntil([&] { return downloads->totalBytes == -1; }));
    EXPECT_EQ(downloads->downloadProgress, 0);
    EXPECT_EQ(downloads->downloadingName.get(), u"a b.x"_s);
    file.close();
    settle();
    EXPECT_EQ(told, QStringList{u"save a b.x 12345"_s});
}

TEST_F(Downloads, ShowTheOneBegunLastUntilItEnds) {
    auto &file = expectFile().held();
    auto &archive = expectArchive().held();
    downloads->save(message, attachment(u"image/png"_s));
    downloads->saveAll(message);
    file.sendHead(200, "image/png", "Content-Length: 4\r\n");
    file.send("file");
    ASSERT_TRUE(spinUntil([&] { return told.size() == 1; }));
    EXPECT_EQ(downloads->downloadingName.get(), u"attachments_7.zip"_s);
    EXPECT_EQ(downloads->downloadedBytes, 0);
    archive.sendHead(200, "application/zip", "Content-Length: 3\r\n");
    archive.send("ZIP");
    settle();
    EXPECT_EQ(downloads->downloadingName.get(), std::nullopt);
}

TEST_F(Downloads, EndAfterTheirScreenIsClosed) {
    auto &file = expectFile().held();
    downloads->save(message, attachment(u"image/png"_s));
    file.request();
    downloads.reset();
    file.sendHead(200, "image/png", "Content-Length: 4\r\n");
    file.send("file");
    settle();
    EXPECT_EQ(told, QStringList{u"save a b.x file"_s});
}

TEST_F(Downloads, ComeToNothingOnceTheSessionIsOver) {
    auto &file = expectFile().held();
    downloads->save(message, attachment(u"image/png"_s));
    file.request();
    state->isAuthenticated = false;
    deliverQueuedEvents();
    file.sendHead(200, "image/png", "Content-Length: 4\r\n");
    file.send("file");
    settle();
    EXPECT_EQ(told, QStringList());
    EXPECT_EQ(downloads->downloadingName.get(), std::nullopt);
}

TEST_F(Downloads, MakeRowsThatFetchWithoutProgress) {
    const auto row = downloads->row(message, attachment(u"Image/PNG"_s));
    EXPECT_EQ(row.filename, u"a b.x"_s);
    EXPECT_EQ(row.mime, u"image/png"_s);
    EXPECT_EQ(row.size, 0);
    expectFile().answer(200, "file");
    EXPECT_EQ(await(row.download()), "file");
    EXPECT_EQ(downloads->downloadingName.get(), std::nullopt);
    row.failure(u"No"_s);
    EXPECT_EQ(told, QStringList{u"No"_s});

    const auto bare = downloads->row(message, {});
    EXPECT_EQ(bare.filename, u"file"_s);
    EXPECT_EQ(bare.mime, u"application/octet-stream"_s);
}

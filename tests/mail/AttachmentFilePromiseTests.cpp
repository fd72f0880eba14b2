#include "mail/AttachmentFilePromise.h"

#include "platform/Error.h"
#include "support/CoreTest.h"

#include <QFile>

using namespace Qt::StringLiterals;

namespace {

QCoro::Task<QByteArray> succeed() {
    co_return "content";
}

QCoro::Task<QByteArray> fail() {
    throw Error(u"Download failed"_s);
    co_return {};
}

class FilePromise : public CoreTest {
protected:
    std::shared_ptr<AttachmentFilePromise> promise(QCoro::Task<QByteArray> (*download)(),
                                                   const QString &name = u"a/b"_s) {
        MacAttachmentRow row;
        row.filename = name;
        row.download = [this, download] {
            ++downloads;
            return download();
        };
        row.failure = [this](const QString &text) { failures.append(text); };
        return std::make_shared<AttachmentFilePromise>(row);
    }
    static QByteArray contentOf(const QString &path) {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    const QString path = temporaryPath(u"dropped"_s);
    int downloads = 0;
    QStringList failures;
};

} // namespace

TEST_F(FilePromise, FetchesNothingUntilItIsToBeWritten) {
    const auto file = promise(succeed);
    EXPECT_EQ(file->fileName(), u"a_b"_s);
    EXPECT_EQ(downloads, 0);
    await(file->write(path));
    EXPECT_EQ(downloads, 1);
    EXPECT_EQ(contentOf(path), "content");
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(FilePromise, LeavesAnExistingFileAlone) {
    QFile existing(path);
    ASSERT_TRUE(existing.open(QIODevice::WriteOnly) && existing.write("older") == 5);
    existing.close();
    const auto failure = failureOf(promise(succeed)->write(path));
    EXPECT_FALSE(failure.isEmpty());
    EXPECT_EQ(failures, QStringList{failure});
    EXPECT_EQ(contentOf(path), "older");
}

TEST_F(FilePromise, TellsOfAFailedDownload) {
    EXPECT_EQ(failureOf(promise(fail)->write(path)), u"Download failed"_s);
    EXPECT_EQ(failures, QStringList{u"Download failed"_s});
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(FilePromise, HasNoFileWithoutARow) {
    const auto nothing = std::make_shared<AttachmentFilePromise>(std::nullopt);
    EXPECT_EQ(nothing->fileName(), u"attachment"_s);
    EXPECT_EQ(failureOf(nothing->write(path)), u"The file does not exist."_s);
}

TEST_F(FilePromise, EndsAfterItsOwnerHasGone) {
    auto task = promise(succeed)->write(path);
    await(std::move(task));
    EXPECT_EQ(contentOf(path), "content");
}

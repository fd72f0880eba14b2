#include "mail/screens/AttachmentDrag.h"

#include "driver/AppDriver.h"
#include "platform/Error.h"

#include <QDropEvent>
#include <QFile>
#include <QFileInfo>
#include <QMimeData>
#include <QPushButton>
#include <QTest>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

/// A place that takes files, or does not, as a file manager does: it looks at once and keeps what it has seen.
class DropPlace final : public QWidget {
public:
    explicit DropPlace(bool takes) {
        setAcceptDrops(takes);
        setGeometry(600, 100, 200, 200);
        show();
    }

    QString path;
    std::optional<QByteArray> content;

protected:
    void dragEnterEvent(QDragEnterEvent *event) override { dragMoveEvent(event); }
    void dragMoveEvent(QDragMoveEvent *event) override {
        path = event->mimeData()->urls().value(0).toLocalFile();
        event->acceptProposedAction();
    }
    void dropEvent(QDropEvent *event) override {
        QFile file(path);
        content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
        event->acceptProposedAction();
    }
};

class AttachmentDragTest : public testing::Test {
protected:
    AttachmentDragTest() {
        qputenv("TMPDIR", QFile::encodeName(temporary.path()));
        source.setGeometry(100, 100, 200, 200);
        source.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&source));
        row.filename = u"a/b.txt"_s;
        row.download = [this]() -> QCoro::Task<QByteArray> {
            ++downloads;
            return fetch();
        };
        row.failure = [this](const QString &text) { failures.append(text); };
    }

    /// Drags from the source to the place, looks around there and lets the button go.
    void dragTo(DropPlace &place) {
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&place));
        QTest::mousePress(source.windowHandle(), Qt::LeftButton, {}, QPoint(20, 20));
        const auto beginning = Clock::shared().after({}, [&] {
            hover(place);
            EXPECT_EQ(downloads, 0) << "fetched before the drop";
            QTest::mouseRelease(place.windowHandle(), Qt::LeftButton, {}, place.rect().center());
        });
        AttachmentDrag drag(std::make_shared<AttachmentFilePromise>(row), QPixmap(16, 16));
        drag.exec();
    }
    static void hover(DropPlace &place) {
        int steps = 0;
        EXPECT_TRUE(AppDriver::waitUntil([&] {
            QTest::mouseMove(place.windowHandle(), place.rect().center() + QPoint(++steps % 20, 0));
            return place.acceptDrops() ? !place.path.isEmpty() : steps > 20;
        }));
    }

    QTemporaryDir temporary;
    QWidget source;
    MacAttachmentRow row;
    QCoro::Task<QByteArray> (*fetch)() = []() -> QCoro::Task<QByteArray> { co_return "dropped"; };
    int downloads = 0;
    QStringList failures;
};

} // namespace

TEST_F(AttachmentDragTest, FetchesTheFileBeforeItIsDropped) {
    DropPlace place(true);
    dragTo(place);
    EXPECT_EQ(downloads, 1);
    EXPECT_EQ(place.content, QByteArray("dropped"));
    EXPECT_EQ(QFileInfo(place.path).fileName(), u"a_b.txt"_s);
    EXPECT_EQ(QFile::permissions(QFileInfo(place.path).path()) & 0x77, 0) << "others can look into the folder";
    EXPECT_TRUE(failures.isEmpty());
}

TEST_F(AttachmentDragTest, FetchesNothingForAPlaceThatTakesNothing) {
    DropPlace place(false);
    dragTo(place);
    EXPECT_EQ(downloads, 0);
    EXPECT_EQ(place.content, std::nullopt);
}

TEST_F(AttachmentDragTest, DropsNothingWhenTheDownloadFails) {
    fetch = []() -> QCoro::Task<QByteArray> {
        throw Error(u"Download failed"_s);
        co_return {};
    };
    DropPlace place(true);
    dragTo(place);
    EXPECT_EQ(downloads, 1);
    EXPECT_EQ(place.content, std::nullopt);
    EXPECT_EQ(failures, QStringList{u"Download failed"_s});
}

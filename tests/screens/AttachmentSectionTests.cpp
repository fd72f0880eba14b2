#include "mail/screens/AttachmentSection.h"

#include "app/AppStateFixture.h"
#include "mail/screens/AttachmentDragView.h"
#include "mail/screens/AttachmentSavePanel.h"
#include "mail/screens/DownloadLine.h"
#include "mail/screens/MacAttachmentPreview.h"
#include "mail/screens/PlainTextView.h"
#include "screens/ScreenTest.h"
#include "screens/Widgets.h"

#include <QAccessible>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QMenu>
#include <QTest>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class Section : public ScreenTest, protected AppStateFixture {
protected:
    void SetUp() override {
        // Read when the first copy is made.
        qputenv("TMPDIR", QFile::encodeName(TestHome::dataHome()));
        server.expect("GET", "/api/emails/notification-state?folder=INBOX").answer(500).anyNumberOfTimes();
        beginSession();
        detail = EmailDetailState::make(state);
        section = new AttachmentSection(state, detail);
        window = std::make_unique<QWidget>();
        (new QVBoxLayout(window.get()))->addWidget(section);
        line = new DownloadLine(section->downloads(), window.get());
        window->resize(600, 400);
        showActive(*window);
    }
    void TearDown() override {
        settle();
        openPreviews().clear();
        window.reset();
        detail.reset();
        state.reset();
        settle();
        ScreenTest::TearDown();
    }

    void show(const QByteArray &attachments) {
        server.expect("GET", "/api/emails/read/7?folder=INBOX")
            .json(R"({"uid": 7, "attachments": [)" + attachments + "]}");
        detail->show(EmailWindowRef{7, u"INBOX"_s});
        settle();
    }
    void showOne(const QByteArray &name = "a.txt", const QByteArray &type = "text/plain") {
        show(R"({"filename": ")" + name + R"(", "type": ")" + type + R"(", "partNum": "2", "size": 2048})");
    }
    FakeExchange &expectFile(const QByteArray &name = "a.txt") {
        return server.expect("GET", "/api/emails/attachment?filename=" + name + "&folder=INBOX&part=2&uid=7");
    }
    AttachmentDragView &row() { return *section->findChild<AttachmentDragView *>(); }
    QString toast() const { return detail->spamToast->value_or(ToastMessage()).message; }
    MacAttachmentPreview *preview() {
        EXPECT_TRUE(spinUntil([] { return !openPreviews().empty(); }));
        return openPreviews().empty() ? nullptr : openPreviews().begin()->second.get();
    }
    /// Presses on the row and moves this far.
    void pressAndMove(QPoint way) {
        QTest::mousePress(&row(), Qt::LeftButton, {}, QPoint(50, 10));
        QMouseEvent move(QEvent::MouseMove, QPoint(50, 10) + way, row().mapToGlobal(QPoint(50, 10) + way), Qt::NoButton,
                         Qt::LeftButton, {});
        QCoreApplication::sendEvent(&row(), &move);
    }

    std::shared_ptr<EmailDetailState> detail;
    std::unique_ptr<QWidget> window;
    AttachmentSection *section = nullptr;
    DownloadLine *line = nullptr;
};

} // namespace

TEST_F(Section, CountsAttachmentsAndLeavesOutInlineImages) {
    EXPECT_FALSE(section->isVisible());
    show(R"({"filename": "a"}, {"filename": "b", "type": "image/png", "cid": "x"}, {"type": "image/png", "cid": " "})");
    EXPECT_TRUE(showsText(*section, u"2 Attachments"_s));
    EXPECT_TRUE(visibleNamed<QAbstractButton>(*section, u"Download All"_s));
    EXPECT_EQ(namelessControls(*section), QStringList());
    EXPECT_TRUE(visibleNamed<AttachmentDragView>(*section, u"file"_s));
}

TEST_F(Section, HasNothingToDownloadTogetherWithOneAttachment) {
    showOne();
    EXPECT_TRUE(showsText(*section, u"1 Attachment"_s));
    EXPECT_FALSE(showsText(*section, u"Attachments"_s));
    EXPECT_FALSE(visibleNamed<QAbstractButton>(*section, u"Download All"_s));
    EXPECT_EQ(row().toolTip(), u"Open a.txt · Drag to Finder to save"_s);
    const auto *accessible = QAccessible::queryAccessibleInterface(&row());
    EXPECT_EQ(accessible->role(), QAccessible::Button);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"a.txt"_s);
    EXPECT_EQ(accessible->text(QAccessible::Description),
              u"Open attachment. Drag to Finder to save. Control-click for more actions."_s);
}

TEST_F(Section, OpensByClickAndKey) {
    showOne();
    expectFile().answer(200, "first");
    // Four pixels away is still a click.
    pressAndMove({4, 0});
    EXPECT_EQ(section->downloads()->downloadingName.get(), std::nullopt);
    QTest::mouseRelease(&row(), Qt::LeftButton, {}, QPoint(54, 10));
    ASSERT_TRUE(preview());
    EXPECT_EQ(preview()->preview()->windowTitle(), u"a.txt"_s);
    auto *text = preview()->preview()->findChild<PlainTextView *>();
    EXPECT_TRUE(spinUntil([&] { return text->isVisible(); }));
    EXPECT_EQ(text->text(), u"first"_s);
    openPreviews().clear();

    expectFile().answer(200, "second");
    row().setFocus();
    QTest::keyClick(&row(), Qt::Key_Return);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QKeyEvent repeat(QEvent::KeyPress, key, {}, {}, true);
        QCoreApplication::sendEvent(&row(), &repeat);
    }
    EXPECT_TRUE(preview());
    settle();
}

TEST_F(Section, DoesNotOpenWhatWasDraggedAway) {
    showOne();
    pressAndMove({3, 3});
    QTest::mouseRelease(&row(), Qt::LeftButton, {}, QPoint(53, 13));
    server.assertSilence();
    EXPECT_EQ(section->downloads()->downloadingName.get(), std::nullopt);
}

TEST_F(Section, OffersBothActionsInItsMenu) {
    showOne();
    QContextMenuEvent request(QContextMenuEvent::Mouse, {5, 5}, row().mapToGlobal(QPoint(5, 5)));
    QCoreApplication::sendEvent(&row(), &request);
    auto *menu = row().findChild<QMenu *>();
    ASSERT_TRUE(menu);
    QStringList entries;
    for (const auto *action : menu->actions())
        entries.append(action->text());
    EXPECT_EQ(entries, (QStringList{u"Open Attachment"_s, u"Save Attachment…"_s}));

    expectFile().answer(200, "bytes");
    menu->actions().last()->trigger();
    ASSERT_TRUE(spinUntil([&] { return window->findChild<QFileDialog *>(); }));
    auto *panel = window->findChild<QFileDialog *>();
    EXPECT_TRUE(panel->selectedFiles().value(0).endsWith(u"/a.txt"_s));
    const auto target = temporaryPath(u"saved.txt"_s);
    Q_EMIT panel->fileSelected(target);
    ASSERT_TRUE(spinUntil([&] { return QFile::exists(target); }));
    QFile saved(target);
    ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
    EXPECT_EQ(saved.readAll(), "bytes");
    delete panel;
}

TEST_F(Section, SavesWhereDownloadsLieOrElseAtHome) {
    const auto home = qgetenv("HOME");
    const QDir folder(temporaryPath(u"home"_s));
    ASSERT_TRUE(folder.mkpath(u"."_s));
    qputenv("HOME", QFile::encodeName(folder.path()));
    const auto startOfPanel = [this] {
        showSavePanel(window.get(), u"a.txt"_s, {});
        const std::unique_ptr<QFileDialog> panel(window->findChild<QFileDialog *>());
        return panel->directory().path();
    };
    EXPECT_EQ(startOfPanel(), folder.path());
    ASSERT_TRUE(folder.mkdir(u"Downloads"_s));
    EXPECT_EQ(startOfPanel(), folder.filePath(u"Downloads"_s));
    qputenv("HOME", home);
}

TEST_F(Section, TellsWhatWentWrong) {
    showOne();
    expectFile().answer(404);
    QTest::mouseClick(&row(), Qt::LeftButton);
    settle();
    EXPECT_EQ(toast(), u"Download failed: Download failed"_s);
    EXPECT_EQ(detail->spamToast.get()->type, ToastType::error);
}

TEST_F(Section, SavesAllByTheMenuOfTheWindow) {
    showOne();
    server.expect("GET", "/api/emails/attachments/zip?folder=INBOX&name=attachments_7&uid=7").answer(500);
    detail->perform(MacMailAction::saveAttachments);
    EXPECT_TRUE(spinUntil([&] { return line->isVisible(); }));
    EXPECT_TRUE(showsText(*line, u"attachments_7.zip"_s));
    settle();
    EXPECT_FALSE(line->isVisible());
    EXPECT_EQ(toast(), u"Download failed: Download failed"_s);
}

TEST_F(Section, SaysThatABrokenFileCannotBeShown) {
    showOne("a.png", "image/png");
    expectFile("a.png").answer(200, "nonsense");
    QTest::mouseClick(&row(), Qt::LeftButton);
    ASSERT_TRUE(preview());
    auto *shown = preview()->preview();
    EXPECT_TRUE(spinUntil([&] { return showsText(*shown, u"This file could not be shown."_s); }));
    EXPECT_EQ(visibleNamed<QAbstractButton>(*shown, u"Save Attachment"_s)->toolTip(), u"Save Attachment… (⌘S)"_s);
    EXPECT_EQ(visibleNamed<QAbstractButton>(*shown, u"Share"_s)->toolTip(), u"Share Attachment"_s);
    EXPECT_EQ(namelessControls(*shown), QStringList());
}

TEST_F(Section, ForgetsAPreviewThatIsClosed) {
    showOne();
    expectFile().answer(200, "text");
    QTest::mouseClick(&row(), Qt::LeftButton);
    ASSERT_TRUE(preview());
    const auto copy = preview()->fileURL.toLocalFile();
    preview()->preview()->close();
    EXPECT_TRUE(spinUntil([] { return openPreviews().empty(); }));
    EXPECT_TRUE(QFile::exists(copy)) << "it stays until a sweep";
}

TEST_F(Section, ClosesPreviewsWithTheSessionButNotWithTheMessage) {
    showOne();
    expectFile().answer(200, "text");
    QTest::mouseClick(&row(), Qt::LeftButton);
    ASSERT_TRUE(preview());
    detail->show(std::nullopt);
    settle();
    EXPECT_EQ(openPreviews().size(), 1U);
    state->isAuthenticated = false;
    EXPECT_TRUE(spinUntil([] { return openPreviews().empty(); }));
}

TEST(AttachmentPreviewWindow, FitsItsScreen) {
    EXPECT_EQ(attachmentPreviewSize(QSize(800, 600)), QSize(680, 510));
    EXPECT_EQ(attachmentPreviewSize(QSize(3000, 2000)), QSize(840, 800));
    EXPECT_EQ(attachmentPreviewSize(QSize(400, 300)), QSize(420, 320));
    EXPECT_EQ(attachmentPreviewSize(std::nullopt), QSize(840, 765));
}

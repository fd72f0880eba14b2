#include "app/MacAppDelegate.h"

#include "app/AppStateFixture.h"
#include "compose/ComposeRecords.h"
#include "platform/StandardPaths.h"

#include <QDir>
#include <QThreadPool>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

class AppDelegateTest : public CoreTest, protected AppStateFixture {
protected:
    void TearDown() override {
        state.reset();
        CoreTest::TearDown();
    }

    /// What a companion process leaves; `%1` in the list stands for a folder of the test.
    void share(const QString &list) {
        const auto group = groupContainerFolder(applicationGroupName());
        ASSERT_TRUE(group);
        listPath = *group + u"/shared_items.json"_s;
        write(listPath, QString(list).replace(u"%1"_s, temporaryPath({})).toUtf8());
    }
    static void write(const QString &path, const QByteArray &content) {
        QFile file(path);
        ASSERT_TRUE(file.open(QFile::WriteOnly) && file.write(content) == content.size());
    }
    void letReadingEnd() {
        QThreadPool::globalInstance()->waitForDone();
        deliverQueuedEvents();
        deliverQueuedEvents();
    }

    QString listPath;
    ManualClock clock;
    MacAppDelegate delegate;
};

class BadLists : public AppDelegateTest, public testing::WithParamInterface<const char *> {};

} // namespace

TEST_F(AppDelegateTest, HandsOverWhatWaitedForTheWindow) {
    delegate.pendingQuickAction = QuickActionType::inbox;
    delegate.pendingEmail = PendingEmail{7, u"Work"_s};
    delegate.pendingChat = u"u2"_s;
    delegate.deliverPending();
    EXPECT_TRUE(delegate.pendingQuickAction && delegate.pendingEmail && delegate.pendingChat);
    delegate.appState = state;
    delegate.deliverPending();
    EXPECT_EQ(state->pendingShortcutAction.get(), QuickActionType::inbox);
    EXPECT_EQ(state->pendingOpenEmail.get(), (PendingEmail{7, u"Work"_s}));
    EXPECT_EQ(state->pendingOpenChat.get(), u"u2"_s);
    EXPECT_FALSE(delegate.pendingQuickAction || delegate.pendingEmail || delegate.pendingChat);

    state->pendingOpenChat = std::nullopt;
    delegate.deliverPending();
    EXPECT_EQ(state->pendingOpenChat.get(), std::nullopt);
}

TEST_F(AppDelegateTest, ChecksEveryMinuteWhileSomebodyIsSignedIn) {
    delegate.appState = state;
    delegate.didFinishLaunching();
    clock.advance(60s);
    settle();
    EXPECT_EQ(mailCheck.arrivals(), 0);
    beginSession();
    for (int minute = 1; minute <= 3; ++minute) {
        clock.advance(60s);
        settle();
        EXPECT_EQ(mailCheck.arrivals(), 1 + minute);
    }
    state->isAuthenticated = false;
    clock.advance(60s);
    settle();
    EXPECT_EQ(mailCheck.arrivals(), 4);
}

TEST_F(AppDelegateTest, ReconnectsAndChecksOnActivationAndWake) {
    delegate.appState = state;
    beginSession();
    delegate.didBecomeActive();
    settle();
    EXPECT_TRUE(spinUntil([this] { return stream.arrivals() == 2; }));
    EXPECT_EQ(mailCheck.arrivals(), 2);
    delegate.wokeFromSleep();
    settle();
    EXPECT_TRUE(spinUntil([this] { return stream.arrivals() == 3; }));
    EXPECT_EQ(mailCheck.arrivals(), 3);
}

TEST_F(AppDelegateTest, LeavesTheServerAloneWhileNobodyIsSignedIn) {
    delegate.didBecomeActive();
    delegate.appState = state;
    delegate.didBecomeActive();
    delegate.wokeFromSleep();
    state.reset();
    delegate.didBecomeActive();
    delegate.deliverPending();
    server.assertSilence();
    EXPECT_FALSE(stream.hasArrived() || mailCheck.hasArrived());
}

TEST_F(AppDelegateTest, OpensTheWindowAgain) {
    delegate.handleReopen();
    int opened = 0;
    delegate.openMainWindow = [&] { ++opened; };
    delegate.handleReopen();
    EXPECT_EQ(opened, 1);
}

TEST_F(AppDelegateTest, AMailLinkOpensTheWindowAndANewMessage) {
    int opened = 0;
    delegate.openMainWindow = [&] { ++opened; };
    delegate.handleOpenURL(u"mailto:a@b"_s);
    delegate.appState = state;
    state->mailtoTo = u"kept@k"_s;
    const auto former = state->composePresentationID.get();
    delegate.handleOpenURL(u"mailto:?Subject=S&cc=c&bcc=d&body=B"_s);
    EXPECT_EQ(opened, 2);
    EXPECT_EQ(state->mailtoTo.get(), u"kept@k"_s);
    EXPECT_EQ(state->mailtoSubject.get() + state->mailtoCc.get() + state->mailtoBcc.get() + state->mailtoBody.get(),
              u"ScdB"_s);
    EXPECT_TRUE(state->showCompose);
    EXPECT_NE(state->composePresentationID.get(), former);
}

TEST_F(AppDelegateTest, OtherAddressesOnlyOpenTheWindow) {
    delegate.appState = state;
    int opened = 0;
    delegate.openMainWindow = [&] { ++opened; };
    share(u"[]"_s);
    for (const auto &url : {u"https://example.test/mailto:a@b"_s, u"corvanite://other"_s, u"x"_s, u""_s})
        delegate.handleOpenURL(url);
    letReadingEnd();
    EXPECT_EQ(opened, 4);
    EXPECT_FALSE(state->showCompose);
    EXPECT_TRUE(QFile::remove(listPath));
}

TEST_F(AppDelegateTest, BeginsAMessageWithWhatIsShared) {
    write(temporaryPath(u"1"_s), "one");
    write(temporaryPath(u"2"_s), "two");
    share(uR"([{"type": "file", "path": "%1/1", "filename": "one.txt", "mime": "text/plain"},
               {"type": "text", "value": "a"}, {"type": "file", "path": "%1/gone", "filename": "x"},
               {"type": "url", "value": "https://example.test"}, {"type": "file", "path": "%1/2"}, {"type": "text"},
               {"type": "other", "value": "b"}, {}, {"type": "file", "path": "%1/2", "filename": "two"}])"_s);
    delegate.loadSharedItems();
    delegate.appState = state;
    const auto former = state->composePresentationID.get();
    delegate.handleOpenURL(u"corvanite://compose-share"_s);
    delegate.didBecomeActive();
    letReadingEnd();
    const std::vector<SharedAttachment> expected{{u"one.txt"_s, "one", u"text/plain"_s},
                                                 {u"two"_s, "two", u"application/octet-stream"_s}};
    EXPECT_EQ(state->sharedAttachments.get(), expected);
    EXPECT_EQ(state->sharedBody.get(), u"a\nhttps://example.test"_s);
    EXPECT_TRUE(state->showCompose);
    EXPECT_NE(state->composePresentationID.get(), former);
    for (const auto &path : {listPath, temporaryPath(u"1"_s), temporaryPath(u"2"_s)})
        EXPECT_FALSE(QFile::exists(path)) << path.toStdString();
}

TEST_F(AppDelegateTest, AListWithoutAnythingUsefulStillBeginsAMessage) {
    delegate.appState = state;
    share(u"[]"_s);
    delegate.didBecomeActive();
    letReadingEnd();
    EXPECT_TRUE(state->showCompose);
    state->showCompose = false;
    delegate.didBecomeActive();
    letReadingEnd();
    EXPECT_FALSE(state->showCompose);
}

TEST_F(AppDelegateTest, OfASharedGiantOnlySoMuchIsReadThatItIsTooLarge) {
    delegate.appState = state;
    write(temporaryPath(u"giant"_s), "");
    ASSERT_TRUE(QFile::resize(temporaryPath(u"giant"_s), qint64(1) << 40));
    share(uR"([{"type": "file", "path": "%1/giant", "filename": "giant"}])"_s);
    delegate.loadSharedItems();
    letReadingEnd();
    ASSERT_EQ(state->sharedAttachments->size(), 1);
    EXPECT_EQ(state->sharedAttachments->front().data.size(), attachmentsLimit + 1);
}

TEST_P(BadLists, StayWhereTheyAre) {
    delegate.appState = state;
    share(QString::fromUtf8(GetParam()));
    delegate.loadSharedItems();
    letReadingEnd();
    EXPECT_FALSE(state->showCompose);
    EXPECT_TRUE(QFile::remove(listPath));
}

INSTANTIATE_TEST_SUITE_P(, BadLists,
                         testing::Values("", "x", "{}", R"([{"type": "text", "value": 1}])", R"(["a"])",
                                         R"([{"type": "text", "value": null}])"));

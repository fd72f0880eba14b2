#include "mail/EmailDetailFixture.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;
using Content = EmailDetailState::Content;
using Body = EmailDetailState::Body;

namespace {

struct BodyRow {
    const char *name;
    QByteArray json;
    Body body;
    bool offersImages;
};

class Bodies : public EmailDetailStateTest, public testing::WithParamInterface<BodyRow> {};

const BodyRow bodies[] = {
    {"None", R"({"uid": 7})", Body::none, false},
    {"Text", R"({"uid": 7, "body_text": "<img"})", Body::text, false},
    {"HTML", R"({"uid": 7, "body_html": "<p>x", "body_text": "x"})", Body::html, false},
    {"EmptyHTML", R"({"uid": 7, "body_html": "", "body_text": "x"})", Body::text, false},
    {"BothEmpty", R"({"uid": 7, "body_html": "", "body_text": ""})", Body::none, false},
    {"Image", R"({"uid": 7, "body_html": "<p><img src=x>"})", Body::html, true},
    {"ImageInUpperCase", R"({"uid": 7, "body_html": "<IMG src=x>"})", Body::html, false},
};

struct AttachmentRow {
    const char *name;
    QByteArray attachments;
    qsizetype shown;
    bool hasAny;
};

class Attachments : public EmailDetailStateTest, public testing::WithParamInterface<AttachmentRow> {};

const AttachmentRow attachments[] = {
    {"None", R"([])", 0, false},
    {"File", R"([{"filename": "a.txt"}])", 1, true},
    {"Picture", R"([{"type": "image/png"}])", 1, true},
    {"PictureOfTheBody", R"([{"type": "image/png", "cid": "<a@b>"}])", 0, true},
    {"BlankContentID", R"([{"type": "image/png", "cid": " \t"}])", 1, true},
    {"PaddedUpperCaseType", R"([{"type": " IMAGE/PNG", "cid": "a"}])", 0, true},
    {"TypeBeforeContentType", R"([{"type": "text/plain", "contentType": "image/png", "cid": "a"}])", 1, true},
    {"ContentType", R"([{"contentType": "image/png", "cid": "a"}])", 0, true},
    {"FileWithContentID", R"([{"cid": "a"}])", 1, true},
};

struct HeaderRow {
    const char *name;
    QByteArray json;
    QString subject, senderName, senderAddress;
};

class Headers : public EmailDetailStateTest, public testing::WithParamInterface<HeaderRow> {};

const HeaderRow headers[] = {
    {"Bare", R"({"uid": 7})", u"(No Subject)"_s, u"Unknown"_s, QString()},
    {"NobodyInFrom", R"({"uid": 7, "subject": "", "from": []})", QString(), u"Unknown"_s, QString()},
    {"Email", R"({"uid": 7, "subject": "S", "from": [{"name": "Ada", "email": "a@x.org", "address": "b@x.org"}]})",
     u"S"_s, u"Ada"_s, u"a@x.org"_s},
    {"Address", R"({"uid": 7, "subject": "S", "from": [{"name": "Ada", "address": "b@x.org"}, {"name": "Bo"}]})",
     u"S"_s, u"Ada"_s, u"b@x.org"_s},
};

} // namespace

TEST_F(EmailDetailStateTest, ShowsOneContentAfterTheOther) {
    EXPECT_EQ(screen->content(), Content::nothingSelected);
    EXPECT_EQ(screen->placeholder(),
              (ViewTexts{u"envelope.open"_s, u"No email selected"_s, u"Select an email to read it"_s}));
    auto &read = expectRead(7).held();
    show(7);
    EXPECT_EQ(screen->content(), Content::loading);
    answerHeld(read, R"({"uid": 7})");
    settle();
    EXPECT_EQ(screen->content(), Content::message);
    screen->messageMoved = true;
    EXPECT_EQ(screen->content(), Content::moved);
    EXPECT_EQ(screen->placeholder(), (ViewTexts{u"tray"_s, u"Message moved"_s, u"Select another email to read it"_s}));
    screen->show(std::nullopt);
    EXPECT_EQ(screen->content(), Content::nothingSelected);
}

TEST_F(EmailDetailStateTest, SaysWhyAMessageDidNotLoadAndTriesAgain) {
    expectRead(7).json(R"({"error": "No such message"})", 404);
    show(7);
    settle();
    EXPECT_EQ(screen->content(), Content::failure);
    EXPECT_EQ(screen->placeholder(),
              (ViewTexts{u"envelope.badge.shield.half.filled"_s, u"Couldn't Load This Email"_s, u"No such message"_s}));
    screen->messageMoved = true;
    auto &again = expectRead(7).held();
    screen->retry();
    EXPECT_EQ(screen->content(), Content::loading);
    answerHeld(again, R"({"uid": 7})");
    settle();
    EXPECT_EQ(screen->content(), Content::message);
}

TEST_F(EmailDetailStateTest, LoadsAMessageOnceUntilAnotherIsWanted) {
    open(R"({"uid": 7})");
    show(7);
    server.assertSilence();
    expectRead(8).json(R"({"uid": 8})");
    show(8);
    settle();
    expectRead(7).json(R"({"uid": 7})");
    show(7);
    settle();
    EXPECT_EQ(screen->viewModel->email.get()->uid, 7);
}

TEST_F(EmailDetailStateTest, ShowsTheMessageWantedLastWhateverComesFirst) {
    auto &first = expectRead(7).held();
    auto &second = expectRead(8).held();
    show(7);
    first.request();
    show(8);
    answerHeld(second, R"({"uid": 8})");
    ASSERT_TRUE(spinUntil([this] { return screen->content() == Content::message; }));
    answerHeld(first, R"({"uid": 7})");
    settle();
    EXPECT_EQ(screen->viewModel->email.get()->uid, 8);
}

TEST_F(EmailDetailStateTest, ShowsNothingWhenTheSelectionEndsBeforeTheAnswer) {
    auto &read = expectRead(7).held();
    show(7);
    read.request();
    screen->show(std::nullopt);
    answerHeld(read, R"({"uid": 7})");
    settle();
    EXPECT_EQ(screen->content(), Content::nothingSelected);
}

TEST_F(EmailDetailStateTest, HidesTheImagesOfTheNextMessageAgain) {
    open(R"({"uid": 7, "body_html": "<img src=x>"})");
    ASSERT_TRUE(screen->offersImages());
    screen->showImages();
    EXPECT_FALSE(screen->offersImages());
    EXPECT_TRUE(screen->viewModel->showImages);
    expectRead(7).json(R"({"uid": 7, "body_html": "<img src=x>"})");
    screen->retry();
    settle();
    EXPECT_TRUE(screen->viewModel->showImages);
    expectRead(8).json(R"({"uid": 8, "body_html": "<img src=x>"})");
    show(8);
    settle();
    EXPECT_TRUE(screen->offersImages());
}

TEST_P(Bodies, AreChosenByWhatTheMessageHas) {
    open(GetParam().json);
    EXPECT_EQ(screen->body(), GetParam().body);
    EXPECT_EQ(screen->offersImages(), GetParam().offersImages);
}

INSTANTIATE_TEST_SUITE_P(, Bodies, testing::ValuesIn(bodies), rowName);

TEST_P(Headers, ShowWhatTheMessageHas) {
    server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=s").answer(500).anyNumberOfTimes();
    open(GetParam().json);
    EXPECT_EQ(screen->subjectText(), GetParam().subject);
    EXPECT_EQ(screen->senderName(), GetParam().senderName);
    EXPECT_EQ(screen->senderAddress(), GetParam().senderAddress);
}

INSTANTIATE_TEST_SUITE_P(, Headers, testing::ValuesIn(headers), rowName);

TEST_P(Attachments, AreShownUnlessTheyArePartOfTheBody) {
    open(R"({"uid": 7, "attachments": )" + GetParam().attachments + "}");
    EXPECT_EQ(qsizetype(screen->shownAttachments().size()), GetParam().shown);
    EXPECT_EQ(screen->hasAttachments(), GetParam().hasAny);
}

INSTANTIATE_TEST_SUITE_P(, Attachments, testing::ValuesIn(attachments), rowName);

TEST_F(EmailDetailStateTest, GoesToRelatedMessagesAndBack) {
    server.expect("GET", "/api/emails/list?folder=INBOX&page=1&per_page=50&search=plan")
        .json(pageJSON(
            R"({"uid": 7, "subject": "Plan"}, {"uid": 5, "subject": "Re: plan"}, {"uid": 6, "subject": "x"})"));
    open(R"({"uid": 7, "subject": "Plan"})");
    EXPECT_EQ(screen->threadTitle(), u"Thread (1 related)"_s);
    screen->toggleThread();
    EXPECT_TRUE(screen->showThreadExpanded);
    expectRead(5).json(R"({"uid": 5})");
    screen->openRelated(5);
    settle();
    const auto related = screen->pushed.get();
    ASSERT_TRUE(related);
    EXPECT_EQ(related->viewModel->email.get()->uid, 5);
    EXPECT_TRUE(related->isPushed());
    EXPECT_EQ(screen->viewModel->email.get()->uid, 7);
    related->goBack();
    EXPECT_FALSE(screen->pushed.get());
    screen->goBack();
    EXPECT_EQ(screen->content(), Content::message);
}

TEST_F(EmailDetailStateTest, LeavesRelatedMessagesForTheNextSelection) {
    open(R"({"uid": 7})");
    expectRead(5).json(R"({"uid": 5})");
    screen->openRelated(5);
    screen->toggleThread();
    settle();
    expectRead(8).json(R"({"uid": 8})");
    show(8);
    EXPECT_FALSE(screen->pushed.get());
    EXPECT_FALSE(screen->showThreadExpanded);
    settle();
}

TEST_F(EmailDetailStateTest, SaysWhatWasCopied) {
    open(R"({"uid": 7})");
    QSignalSpy copied(screen.get(), &EmailDetailState::copyRequested);
    screen->copySubject();
    EXPECT_EQ(screen->copiedToast->value_or(ToastMessage()).message, u"Subject copied to clipboard"_s);
    screen->copyAddress(u"a@x.org"_s);
    EXPECT_EQ(screen->copiedToast->value_or(ToastMessage()).message, u"a@x.org copied to clipboard"_s);
    EXPECT_EQ(screen->copiedToast->value_or(ToastMessage()).type, ToastType::success);
    ASSERT_EQ(copied.count(), 2);
    EXPECT_EQ(copied[0][0], u"(No Subject)"_s);
    EXPECT_EQ(copied[1][0], u"a@x.org"_s);
}

TEST_F(EmailDetailStateTest, OutlivesItsScreenUntilTheAnswer) {
    auto &read = expectRead(7).held();
    show(7);
    read.request();
    const std::weak_ptr<EmailDetailState> weak = screen;
    screen.reset();
    answerHeld(read, R"({"uid": 7})");
    settle();
    EXPECT_TRUE(weak.expired());
}

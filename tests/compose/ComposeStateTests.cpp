#include "compose/ComposeFixture.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

class ComposeStateTest : public ComposeFixture {
protected:
    QStringList suggested() const {
        QStringList result;
        for (const auto &contact : screen->contactSuggestions.get())
            result.append(contact.email);
        return result;
    }
    void expectContent(const QString &html) {
        EXPECT_EQ(message().body.get(), html);
        EXPECT_EQ(screen->editorHTML.get(), html);
        EXPECT_EQ(screen->initialEditorContent.get(), html);
    }
};

const QString plainBlock = u"<br><div class=\"email-signature\">--<br>Me<br>&amp; co</div>"_s;
const QByteArray plainSignature = R"(, "signature": "Me\n&amp; co")";

struct SignatureRow {
    const char *name;
    QByteArray fields;
    QString block;
};

class Signatures : public ComposeStateTest, public testing::WithParamInterface<SignatureRow> {};

const SignatureRow signatures[] = {
    {"Plain", plainSignature, plainBlock},
    {"HTML", R"(, "signature": "<b>Me</b>\n2")", u"<br><div class=\"email-signature\">--<br><b>Me</b>\n2</div>"_s},
    {"OneBracket", R"(, "signature": "1 < 2\n3")", u"<br><div class=\"email-signature\">--<br>1 < 2<br>3</div>"_s},
    {"Empty", R"(, "signature": "")", u""_s},
    {"Absent", "", u""_s},
};

struct CarryRow {
    const char *name;
    QByteArray fields;
    bool carries;
};

class Carrying : public ComposeStateTest, public testing::WithParamInterface<CarryRow> {};

const CarryRow carrying[] = {
    {"Wanted", R"(, "reply_forward_attachments": true)", true},
    {"NotSaid", "", true},
    {"Unwanted", R"(, "reply_forward_attachments": false)", false},
};

struct CompletionRow {
    const char *name;
    QString typed;
    QStringList matches;
};

class RecipientCompletion : public ComposeStateTest, public testing::WithParamInterface<CompletionRow> {};

const CompletionRow completions[] = {
    {"Address", u"EXAMPLE"_s, {u"Ada@example.test"_s, u"bob@example.test"_s}},
    {"Name", u"eV"_s, {u"eve@other.test"_s}},
    {"OneLetter", u"e"_s, {}},
    {"BlanksDoNotCount", u" e  "_s, {}},
    {"BehindTheLastComma", u"bob@example.test, x,  ada "_s, {u"Ada@example.test"_s}},
    {"AfterAComma", u"bob@example.test,"_s, {}},
    {"Unknown", u"zz"_s, {}},
};

} // namespace

TEST_P(Signatures, StandBelowANewMessage) {
    signIn(GetParam().fields);
    open();
    EXPECT_EQ(screen->signatureHTML.get(), GetParam().block);
    expectContent(GetParam().block);
    EXPECT_EQ(screen->title(), u"New Message"_s);
}

TEST_P(Signatures, StandAboveTheQuotation) {
    signIn(GetParam().fields);
    state->composeReplyTo = answeredLetter();
    open();
    EXPECT_TRUE(message().body->startsWith(GetParam().block + u"<br><br><div style=\"border-left"_s));
    expectContent(message().body);
}

INSTANTIATE_TEST_SUITE_P(, Signatures, testing::ValuesIn(signatures), rowName);

TEST_P(Carrying, AttachmentsFollowsTheAccount) {
    signIn(GetParam().fields);
    state->composeReplyTo = answeredLetter();
    open();
    EXPECT_EQ(message().forwardedAttachments->size(), GetParam().carries ? 1 : 0);
    screen->close();
    state->composeForward = answeredLetter();
    open();
    EXPECT_EQ(message().forwardedAttachments->size(), GetParam().carries ? 1 : 0);
    EXPECT_TRUE(message().body->contains(u"Forwarded message"_s));
}

INSTANTIATE_TEST_SUITE_P(, Carrying, testing::ValuesIn(carrying), rowName);

TEST_F(ComposeStateTest, AReplyToAllLeavesOutTheAccountsOwnAddresses) {
    signIn();
    state->composeReplyTo = answeredLetter();
    state->composeReplyAll = true;
    open();
    EXPECT_EQ(message().cc.get(), u"bob@b"_s);
    EXPECT_EQ(message().fromAddress.get(), u"me@a"_s);
    EXPECT_EQ(screen->title(), u"Re: Lunch"_s);
    EXPECT_EQ(state->composeReplyTo.get(), std::nullopt);
    EXPECT_TRUE(suggested().isEmpty());
}

TEST_F(ComposeStateTest, TheRequestIsForOneScreenOnly) {
    signIn();
    state->composeForward = answeredLetter();
    state->mailtoTo = u"x@y"_s;
    auto &slow = openSlowly();
    const auto former = screen;
    former->close();
    auto &current = openSlowly();
    state->sharedBody = u"shared"_s;
    slow.close();
    current.close();
    settle();
    EXPECT_EQ(former->viewModel->to.get(), u"x@y"_s);
    EXPECT_TRUE(former->viewModel->body->startsWith(u"<br><br><div style=\"border-top"_s));
    EXPECT_EQ(message().subject.get(), u""_s);
    EXPECT_EQ(message().to.get(), u""_s);
    expectContent(u"shared"_s);
}

TEST_F(ComposeStateTest, AMailLinkFillsWhatItNames) {
    signIn(plainSignature);
    state->mailtoTo = u"x@y"_s;
    state->mailtoSubject = u"Hello"_s;
    state->mailtoCc = u"c@c"_s;
    state->mailtoBcc = u"d@d"_s;
    state->mailtoBody = u"1\n2"_s;
    open();
    EXPECT_EQ(message().to.get(), u"x@y"_s);
    EXPECT_EQ(message().subject.get(), u"Hello"_s);
    EXPECT_EQ(message().cc.get(), u"c@c"_s);
    EXPECT_EQ(message().bcc.get(), u"d@d"_s);
    EXPECT_TRUE(message().showCc && message().showBcc);
    expectContent(u"1<br>2"_s + plainBlock);
    const auto left = state->takeComposeRequest();
    EXPECT_TRUE((left.to + left.subject + left.cc + left.bcc + left.body + state->sharedBody.get()).isEmpty());
}

TEST_F(ComposeStateTest, AMailLinkThatNamesNothingFillsNothing) {
    signIn();
    open();
    EXPECT_FALSE(message().showCc || message().showBcc);
    expectContent(u""_s);
}

TEST_F(ComposeStateTest, KeepsWhatIsWrittenWhileTheServerIsSlow) {
    for (const bool replies : {false, true}) {
        signIn(plainSignature);
        if (replies)
            state->composeReplyTo = answeredLetter();
        auto &slow = openSlowly();
        screen->editorChanged(u"typ"_s);
        screen->readEditorWith([](auto done) { done(u"typed"_s); });
        EXPECT_FALSE(screen->canSend()) << "the message lacks what it begins with";
        slow.close();
        settle();
        EXPECT_TRUE(message().body->startsWith(u"typed"_s + plainBlock));
        EXPECT_TRUE(screen->canSend());
        expectContent(message().body);
        screen->close();
    }
}

TEST_F(ComposeStateTest, TakesInWhatIsSharedBeforeAndAfterItIsOpen) {
    signIn(plainSignature);
    state->sharedAttachments = {{u"a.txt"_s, "1", u"text/plain"_s},
                                {u"big"_s, QByteArray(attachmentsLimit, 'x'), u"t"_s}};
    open();
    ASSERT_EQ(message().attachments->size(), 1);
    EXPECT_EQ(message().attachments->front().filename, u"a.txt"_s);
    EXPECT_EQ(error(), u"Attachments must total 25 MB or less."_s);
    EXPECT_TRUE(state->sharedAttachments->empty());
    state->sharedBody = u"a\nb"_s;
    state->sharedAttachments = {{u"b.txt"_s, "2", u"text/plain"_s}};
    settle();
    EXPECT_EQ(message().attachments->size(), 2);
    expectContent(u"a<br>b"_s + plainBlock);
    screen->editorChanged(u""_s);
    state->sharedBody = u"c"_s;
    settle();
    expectContent(u"c"_s + plainBlock);
    screen->readEditorWith([](auto done) { done(u"the last key"_s); });
    state->sharedBody = u"d"_s;
    settle();
    expectContent(u"dthe last key"_s);
    screen->close();
    state->sharedBody = u"for another"_s;
    settle();
    EXPECT_EQ(state->sharedBody.get(), u"for another"_s);
}

TEST_F(ComposeStateTest, FillsItselfOnce) {
    signIn(plainSignature);
    open();
    screen->editorChanged(u"typed"_s);
    screen->start();
    settle();
    EXPECT_EQ(message().body.get(), u"typed"_s);
}

TEST_P(RecipientCompletion, OffersWhatIsBeingTyped) {
    open();
    screen->recipientsEdited(GetParam().typed);
    EXPECT_EQ(suggested(), GetParam().matches);
    EXPECT_EQ(screen->showSuggestions.get(), !GetParam().matches.isEmpty());
    EXPECT_EQ(message().to.get(), GetParam().typed);
}

INSTANTIATE_TEST_SUITE_P(, RecipientCompletion, testing::ValuesIn(completions), rowName);

TEST_F(ComposeStateTest, AChosenContactReplacesTheWholeField) {
    open();
    screen->recipientsEdited(u"x@y, ad"_s);
    ASSERT_TRUE(screen->showSuggestions);
    screen->chooseSuggestion(screen->contactSuggestions->front());
    EXPECT_EQ(message().to.get(), u"Ada@example.test"_s);
    EXPECT_FALSE(screen->showSuggestions);
    // As the field tells of its new text.
    screen->recipientsEdited(u"Ada@example.test"_s);
    EXPECT_TRUE(suggested().isEmpty());
    screen->recipientsEdited(u"Ada@example.test, bo"_s);
    EXPECT_EQ(suggested(), QStringList{u"bob@example.test"_s});
    screen->closeSuggestions();
    EXPECT_FALSE(screen->showSuggestions);
}

TEST_F(ComposeStateTest, SuggestsNothingWithoutContacts) {
    contactsJSON = "{}";
    open();
    screen->recipientsEdited(u"ada"_s);
    EXPECT_FALSE(screen->showSuggestions);
    EXPECT_EQ(error(), std::nullopt);
}

TEST_F(ComposeStateTest, OffersTemplatesAlsoWhenThereAreNone) {
    open();
    server.expect("GET", "/api/templates").json(R"({"templates": [{"_id": "1", "name": "N"}]})");
    screen->openTemplates();
    settle();
    EXPECT_TRUE(screen->showTemplatePicker);
    EXPECT_EQ(screen->templates->size(), 1);
    server.expect("GET", "/api/templates").answer(500);
    screen->openTemplates();
    settle();
    EXPECT_TRUE(screen->showTemplatePicker);
    EXPECT_THAT(screen->templates.get(), IsEmpty());
}

TEST_F(ComposeStateTest, ATemplateReplacesWhatItHas) {
    signIn(plainSignature);
    open();
    message().subject = u"mine"_s;
    screen->showTemplatePicker = true;
    screen->pickTemplate({u"1"_s, u"N"_s, u""_s, u""_s});
    EXPECT_EQ(message().subject.get(), u"mine"_s);
    expectContent(plainBlock);
    EXPECT_FALSE(screen->showTemplatePicker);
    screen->pickTemplate({u"1"_s, u"N"_s, u"S"_s, u"1\n2 > 1"_s});
    EXPECT_EQ(message().subject.get(), u"S"_s);
    expectContent(u"1<br>2 > 1"_s);
    screen->pickTemplate({u"1"_s, u"N"_s, std::nullopt, u"<p>1\n2"_s});
    expectContent(u"<p>1\n2"_s);
}

TEST_F(ComposeStateTest, OffersWritingOnlyWithAModel) {
    open();
    EXPECT_FALSE(screen->offersAI());
    signIn(R"(, "ai_provider": "none", "has_ai_key": true)");
    EXPECT_FALSE(screen->offersAI());
    signIn(R"(, "ai_provider": "ollama")");
    EXPECT_TRUE(screen->offersAI());
}

TEST_F(ComposeStateTest, HasTheTextWritten) {
    open();
    screen->showAIPrompt = true;
    screen->aiPrompt = u" \n"_s;
    EXPECT_FALSE(screen->canGenerate());
    screen->generate();
    screen->aiPrompt = u"decline"_s;
    auto &first = server.expect("POST", "/api/ai/compose").held();
    screen->generate();
    EXPECT_TRUE(screen->isAILoading);
    screen->generate();
    EXPECT_EQ(first.request().body, R"({"prompt":"decline","existing_content":""})");
    const QByteArray answer = R"({"content": "No\nthanks"})";
    first.sendHead(200, "application/json", "Content-Length: " + QByteArray::number(answer.size()) + "\r\n");
    first.send(answer);
    settle();
    expectContent(u"No<br>thanks"_s);
    EXPECT_FALSE(screen->isAILoading || screen->showAIPrompt);
    EXPECT_EQ(screen->aiPrompt.get(), u""_s);
}

TEST_F(ComposeStateTest, KeepsThePromptWhenWritingFails) {
    open();
    screen->editorChanged(u"<p>draft</p>"_s);
    screen->showAIPrompt = true;
    screen->aiPrompt = u"shorter"_s;
    auto &exchange = server.expect("POST", "/api/ai/compose").json(R"({"error": "No model"})");
    screen->generate();
    settle();
    EXPECT_EQ(exchange.request().body, R"({"prompt":"shorter","existing_content":"<p>draft</p>"})");
    EXPECT_EQ(error(), u"No model"_s);
    EXPECT_TRUE(screen->showAIPrompt);
    EXPECT_FALSE(screen->isAILoading);
    EXPECT_EQ(screen->aiPrompt.get(), u"shorter"_s);
    EXPECT_EQ(message().body.get(), u"<p>draft</p>"_s);
    screen->closeAIPrompt();
    EXPECT_EQ(screen->aiPrompt.get(), u""_s);
    EXPECT_FALSE(screen->showAIPrompt);
}

#include "compose/screens/ComposeView.h"

#include "app/screens/AppWindow.h"
#include "app/screens/ComposePresenter.h"
#include "compose/screens/ComposeAttachmentList.h"
#include "compose/screens/ComposeEditorView.h"
#include "compose/screens/ContactSuggestions.h"
#include "compose/screens/DropFrame.h"
#include "screens/SectionScreenFixture.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ErrorBanner.h"

#include <QComboBox>
#include <QDropEvent>
#include <QFile>
#include <QLineEdit>
#include <QMimeData>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTemporaryDir>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

class ComposeScreen : public SectionScreen {
protected:
    void expectStart(const QByteArray &addresses = "[]") {
        server.expect("GET", "/api/contacts").json(R"({"contacts": [{"_id": "1", "email": "ada@x.org", "name": "Ada"},
                                   {"_id": "2", "email": "adam@x.org"}]})");
        server.expect("GET", "/api/from-addresses").json("{\"addresses\": " + addresses + "}");
    }
    void open(const QByteArray &addresses = "[]") {
        expectStart(addresses);
        auto state = ComposeState::make(appState);
        auto screen = std::make_unique<ComposeView>(state, actions);
        view = screen.get();
        QObject::connect(view, &ComposeView::dismissed, view, [this] { ++dismissals; });
        show(std::move(screen));
    }
    template <typename Widget = QLineEdit> Widget *named(const QString &name) const {
        return visibleNamed<Widget>(*section, name);
    }
    ComposeViewModel &message() const { return *view->state().viewModel; }
    QComboBox *senders() const { return section->findChild<QComboBox *>(); }
    static void answer(FakeExchange &held, const QByteArray &json) {
        held.sendHead(200, "application/json", "Content-Length: " + QByteArray::number(json.size()) + "\r\n");
        held.send(json);
    }
    static User userWithModel() {
        return decodeJSON<User>(QJsonObject{{u"username"_s, u"a"_s}, {u"ai_provider"_s, u"ollama"_s}});
    }
    ContactSuggestions *suggestions() const { return section->findChild<ContactSuggestions *>(); }
    void focus(QWidget *widget) {
        widget->setFocus();
        settle();
    }
    /// Whether the screen took it.
    bool drop(QWidget *target, const QMimeData &data) {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &enter);
        auto *frame = section->findChild<DropFrame *>();
        EXPECT_EQ(frame->isVisible(), data.hasUrls());
        QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(target, &event);
        EXPECT_FALSE(frame->isVisible());
        settle();
        return enter.isAccepted() && event.isAccepted();
    }

    std::shared_ptr<AppState> appState = std::make_shared<AppState>();
    FocusedActions actions;
    ComposeView *view = nullptr;
    int dismissals = 0;
};

} // namespace

TEST_F(ComposeScreen, BeginsInTheFieldThatIsMissing) {
    appState->mailtoTo = u"ada@x.org"_s;
    open();
    EXPECT_EQ(QApplication::focusWidget(), named(u"Subject"_s));
    EXPECT_EQ(named(u"To"_s)->text(), u"ada@x.org"_s);
}

TEST_F(ComposeScreen, OffersSendersOnlyWhenThereIsAChoice) {
    open(R"([{"address": "a@x.org"}])");
    EXPECT_FALSE(senders()->isVisible());
    EXPECT_EQ(message().fromAddress.get(), u"a@x.org"_s);
}

TEST_F(ComposeScreen, SendsFromTheChosenAddress) {
    open(R"([{"address": "a@x.org"}, {"address": "b@x.org"}])");
    focus(senders());
    press(Qt::Key_Down);
    EXPECT_EQ(message().fromAddress.get(), u"b@x.org"_s);
}

TEST_F(ComposeScreen, SuggestionsAreTakenByKeysAlone) {
    open();
    type(u"bob@x.org, ad"_s);
    ASSERT_TRUE(suggestions()->isVisible());
    EXPECT_EQ(suggestions()->item(0)->text(), u"Ada <ada@x.org>"_s);
    EXPECT_EQ(suggestions()->item(1)->text(), u"adam@x.org"_s);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(message().to.get(), u"adam@x.org"_s);
    EXPECT_EQ(named(u"To"_s)->text(), u"adam@x.org"_s);
    EXPECT_FALSE(suggestions()->isVisible());
}

TEST_F(ComposeScreen, TabTakesNoSuggestionThatNobodyChose) {
    open();
    type(u"bob@x.org, ad"_s);
    ASSERT_TRUE(suggestions()->isVisible());
    press(Qt::Key_Tab);
    EXPECT_EQ(message().to.get(), u"bob@x.org, ad"_s);
    EXPECT_EQ(QApplication::focusWidget(), named(u"Subject"_s));
    EXPECT_FALSE(suggestions()->isVisible());
}

TEST_F(ComposeScreen, TabLeadsFromTheSubjectToTheTextAndBackThroughTheToolbar) {
    open();
    focus(named(u"Subject"_s));
    press(Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), named<QPlainTextEdit>(u"Message"_s));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), named<IconButton>(u"Font Size"_s));
    press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_EQ(QApplication::focusWidget(), named(u"Subject"_s));
}

TEST_F(ComposeScreen, EscapeClosesTheSuggestionsBeforeTheScreen) {
    open();
    type(u"ad"_s);
    ASSERT_TRUE(suggestions()->isVisible());
    press(Qt::Key_Escape);
    EXPECT_FALSE(suggestions()->isVisible());
    EXPECT_EQ(dismissals, 0);
    press(Qt::Key_Escape);
    EXPECT_EQ(dismissals, 1);
}

TEST_F(ComposeScreen, EscapeInTheToolbarGivesNothingUp) {
    open();
    focus(named<IconButton>(u"Font Size"_s));
    press(Qt::Key_Escape);
    EXPECT_EQ(dismissals, 0);
}

TEST_F(ComposeScreen, WhoeverSendsGoesOnInTheText) {
    appState->mailtoTo = u"ada@x.org"_s;
    appState->mailtoSubject = u"S"_s;
    open();
    auto &sending = server.expect("POST", "/api/emails/send").held();
    QTest::mouseClick(named<QPushButton>(u"Send"_s), Qt::LeftButton);
    sending.request();
    EXPECT_TRUE(spinUntil([this] { return QApplication::focusWidget() == named<QPlainTextEdit>(u"Message"_s); }));
    answer(sending, "{}");
    EXPECT_TRUE(spinUntil([this] { return dismissals == 1; }));
}

TEST_F(ComposeScreen, NothingLiesUponAnotherAtTheSmallestSize) {
    open();
    view->state().viewModel->showCc = true;
    view->state().viewModel->errorMessage = u"Too big"_s;
    settle();
    section->resize(520, 1);
    settle();
    const auto *send = named<QPushButton>(u"Send"_s);
    EXPECT_LE(view->editor()->mapTo(view, QPoint(0, view->editor()->height())).y(), send->mapTo(view, QPoint()).y());
    EXPECT_GE(view->editor()->height(), 120);
}

TEST_F(ComposeScreen, CopiesAreShownForGood) {
    open();
    EXPECT_EQ(named(u"Cc"_s), nullptr);
    QTest::mouseClick(named<QPushButton>(u"Cc"_s), Qt::LeftButton);
    settle();
    EXPECT_EQ(QApplication::focusWidget(), named(u"Cc"_s));
    EXPECT_EQ(named<QPushButton>(u"Cc"_s), nullptr);
    type(u"c@x.org"_s);
    EXPECT_EQ(message().cc.get(), u"c@x.org"_s);
}

TEST_F(ComposeScreen, WhatIsMissingIsSaidWhereItIsMissing) {
    open();
    focus(named<QPlainTextEdit>(u"Message"_s));
    actions.compose()->send();
    settle();
    auto *error = section->findChild<ErrorBanner *>();
    EXPECT_TRUE(error->isVisible());
    EXPECT_EQ(error->accessibleName(), u"Please enter a recipient"_s);
    EXPECT_EQ(dismissals, 0);
    EXPECT_EQ(QApplication::focusWidget(), named(u"To"_s));
    type(u"ada@x.org"_s);
    focus(named<QPlainTextEdit>(u"Message"_s));
    actions.compose()->send();
    settle();
    EXPECT_EQ(error->accessibleName(), u"Please enter a subject"_s);
    EXPECT_EQ(QApplication::focusWidget(), named(u"Subject"_s));
}

TEST_F(ComposeScreen, ClosesOnceTheMessageIsSent) {
    open();
    type(u"ada@x.org"_s);
    focus(named(u"Subject"_s));
    type(u"Hello"_s);
    auto &sending = server.expect("POST", "/api/emails/send").held();
    QTest::mouseClick(named<QPushButton>(u"Send"_s), Qt::LeftButton);
    ASSERT_TRUE(spinUntil([&] { return message().isSending.get(); }));
    EXPECT_TRUE(spinUntil([&] { return !actions.compose()->canSend; }));
    EXPECT_FALSE(named<QPushButton>(u"Send"_s)->isEnabled());
    answer(sending, "{}");
    ASSERT_TRUE(spinUntil([&] { return dismissals == 1; }));
}

TEST_F(ComposeScreen, FilesDroppedAnywhereAreAttached) {
    open();
    const QTemporaryDir folder;
    QFile file(folder.filePath(u"a note.txt"_s));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("twelve bytes");
    file.close();
    QMimeData files;
    files.setUrls({QUrl::fromLocalFile(file.fileName())});
    EXPECT_TRUE(drop(view, files));
    EXPECT_TRUE(drop(named(u"To"_s), files)) << "a field has kept it";
    auto *text = named<QPlainTextEdit>(u"Message"_s);
    EXPECT_TRUE(drop(text->viewport(), files)) << "the text has kept it";
    EXPECT_EQ(message().attachments->size(), 3U);
    EXPECT_EQ(named(u"To"_s)->text(), QString());
    EXPECT_EQ(text->toPlainText(), QString());
}

TEST_F(ComposeScreen, TextDroppedOnAFieldIsItsText) {
    open();
    QMimeData text;
    text.setText(u"ada@x.org"_s);
    drop(named(u"To"_s), text);
    EXPECT_EQ(named(u"To"_s)->text(), u"ada@x.org"_s);
    EXPECT_EQ(message().to.get(), u"ada@x.org"_s);
}

TEST_F(ComposeScreen, AttachmentsAreRemovedByKeysAlone) {
    open();
    message().addAttachment(u"one"_s, "1", u"text/plain"_s);
    message().addAttachment(u"two"_s, "2", u"text/plain"_s);
    settle();
    focus(named<IconButton>(u"Remove one"_s));
    press(Qt::Key_Return);
    EXPECT_TRUE(spinUntil([this] { return !named<IconButton>(u"Remove one"_s); }));
    EXPECT_EQ(message().attachments->size(), 1U);
    EXPECT_EQ(QApplication::focusWidget(), named<IconButton>(u"Remove two"_s));
}

TEST_F(ComposeScreen, AttachmentsOfAMessageThatIsOpenedAgainAreNoWindow) {
    appState->composeUnsent = std::make_shared<ComposeViewModel>();
    appState->composeUnsent.get()->addAttachment(u"one"_s, "1", u"text/plain"_s);
    section = std::make_unique<QWidget>();
    auto *column = new QVBoxLayout(section.get());
    auto *list = new ComposeAttachmentList(ComposeState::make(appState));
    EXPECT_FALSE(list->isVisible());
    column->addWidget(list);
    showActive(*section);
    EXPECT_TRUE(named<IconButton>(u"Remove one"_s));
}

TEST_F(ComposeScreen, OffersWritingAsSoonAsTheAccountHasAModel) {
    expectStart();
    auto window = std::make_unique<AppWindow>(u"Corvanite"_s, appState, [] {});
    const auto *presenter = new ComposePresenter(appState, window.get(), [] {});
    section = std::move(window);
    section->show();
    appState->isAuthenticated = true;
    appState->presentCompose();
    ASSERT_TRUE(spinUntil([&] { return presenter->composeView(); }));
    settle();
    EXPECT_FALSE(named<QPushButton>(u"AI"_s));
    appState->currentUser = userWithModel();
    settle();
    EXPECT_TRUE(named<QPushButton>(u"AI"_s));
}

TEST_F(ComposeScreen, ASecondPressForTemplatesWaitsForTheFirst) {
    open();
    auto &first = server.expect("GET", "/api/templates").held();
    view->state().openTemplates();
    view->state().openTemplates();
    ASSERT_TRUE(spinUntil([&] { return first.hasArrived(); }));
    answer(first, R"({"templates": [{"_id": "1", "name": "One", "body": "one"}]})");
    ASSERT_TRUE(spinUntil([&] { return sheet() != nullptr; }));
    settle();
    press(Qt::Key_Return);
    EXPECT_EQ(message().body.get(), u"one"_s);
}

TEST_F(ComposeScreen, NamesOfFilesAreShownAsTheyAre) {
    open();
    const auto name = u"<b>a</b> & <img src=x>"_s;
    message().addAttachment(name, "1", u"text/plain"_s);
    settle();
    const auto *button = named<IconButton>(u"Remove "_s + name);
    ASSERT_NE(button, nullptr);
    EXPECT_EQ(button->toolTip(), u"<span>Remove &lt;b&gt;a&lt;/b&gt; &amp; &lt;img src=x&gt;</span>"_s);
}

TEST_F(ComposeScreen, TemplatesAreTakenByKeysAlone) {
    open();
    server.expect("GET", "/api/templates").json(R"({"templates": [{"_id": "1", "name": "One"},
                                {"_id": "2", "name": "Two", "subject": "S", "body": "a\nb"}]})");
    QTest::mouseClick(named<IconButton>(u"Templates"_s), Qt::LeftButton);
    ASSERT_TRUE(spinUntil([&] { return sheet() != nullptr; }));
    settle();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(sheet(), nullptr);
    EXPECT_EQ(message().body.get(), u"a<br>b"_s);
    EXPECT_EQ(named(u"Subject"_s)->text(), u"S"_s);
    EXPECT_FALSE(view->state().showTemplatePicker);
}

TEST_F(ComposeScreen, FailedWritingIsSaidInItsSheet) {
    appState->currentUser = userWithModel();
    open();
    QTest::mouseClick(named<QPushButton>(u"AI"_s), Qt::LeftButton);
    ASSERT_TRUE(spinUntil([&] { return sheet() != nullptr; }));
    settle();
    auto *generate = visibleNamed<QPushButton>(*sheet(), u"Generate"_s);
    EXPECT_FALSE(generate->isEnabled());
    type(u"Thank them"_s);
    EXPECT_TRUE(generate->isEnabled());
    server.expect("POST", "/api/ai/compose").json(R"({"error": "The model is asleep"})", 500);
    QTest::mouseClick(generate, Qt::LeftButton);
    settle();
    auto *error = sheet()->findChild<ErrorBanner *>();
    EXPECT_EQ(error->accessibleName(), u"The model is asleep"_s);
    EXPECT_EQ(sheet()->findChild<QPlainTextEdit *>()->toPlainText(), u"Thank them"_s);
    QTest::keyClick(sheet(), Qt::Key_Escape);
    settle();
    EXPECT_EQ(view->state().aiPrompt.get(), QString());
}

TEST_F(ComposeScreen, TakesItsCommandsBackFromTheMenus) {
    open();
    ASSERT_TRUE(actions.compose().has_value());
    section.reset();
    EXPECT_FALSE(actions.compose().has_value());
}

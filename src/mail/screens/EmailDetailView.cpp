#include "mail/screens/EmailDetailView.h"

#include "mail/screens/DownloadLine.h"
#include "mail/screens/EmailMessageView.h"
#include "mail/screens/EmailToolbar.h"
#include "mail/screens/SourceSheet.h"
#include "ui/screens/ConfirmationSheet.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/Spinner.h"
#include "ui/screens/ToastPresenter.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QShortcut>
#include <QStackedLayout>
#include <QStackedWidget>
#include <QVBoxLayout>

namespace {

/// A message that comes sooner replaces the former one without a flicker of progress between them.
constexpr auto progressDelay = std::chrono::milliseconds(150);

} // namespace

EmailDetailView::EmailDetailView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                                 FocusedActions &actions, QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_state(std::move(state))
    , m_actions(&actions)
    , m_layers(new QStackedLayout(this))
    , m_toolbar(new EmailToolbar(m_state))
    , m_stack(new QStackedWidget)
    , m_loading(new QWidget)
    , m_placeholder(new EmptyStateView)
    , m_message(new EmailMessageView(m_appState, m_state))
    , m_actionToasts(new ToastPresenter(this))
    , m_copyToasts(new ToastPresenter(this)) {
    m_layers->addWidget(makeScreen());
    new DownloadLine(m_message->downloads(), this);
    connectState();
    addBackShortcuts();
    observe(m_state.get(), this, &EmailDetailView::render);
}

EmailDetailView::~EmailDetailView() {
    if (m_actions && m_publishedAttachments)
        m_actions->publishMessage(std::nullopt);
}

QWidget *EmailDetailView::makeScreen() {
    auto *loading = new QVBoxLayout(m_loading);
    loading->addWidget(new Spinner(28), 0, Qt::AlignCenter);
    m_stack->addWidget(m_loading);
    m_stack->addWidget(m_placeholder);
    m_stack->addWidget(m_message);
    auto *screen = new QWidget;
    auto *layout = new QVBoxLayout(screen);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_toolbar);
    layout->addWidget(m_stack, 1);
    return screen;
}

void EmailDetailView::connectState() {
    connect(m_actionToasts, &ToastPresenter::expired, m_state.get(), [this] { m_state->spamToast = std::nullopt; });
    connect(m_copyToasts, &ToastPresenter::expired, m_state.get(), [this] { m_state->copiedToast = std::nullopt; });
    connect(m_state.get(), &EmailDetailState::copyRequested, this,
            [](const QString &text) { QGuiApplication::clipboard()->setText(text); });
    connect(m_placeholder, &EmptyStateView::buttonPressed, m_state.get(), &EmailDetailState::retry);
    connect(m_message, &EmailMessageView::bodyPainted, this, &EmailDetailView::bodyPainted);
}

void EmailDetailView::addBackShortcuts() {
    if (!m_state->isPushed())
        return;
    for (const auto &keys : {QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back)})
        connect(new QShortcut(keys, this, nullptr, nullptr, Qt::WidgetWithChildrenShortcut), &QShortcut::activated,
                m_state.get(), &EmailDetailState::goBack);
}

void EmailDetailView::keyPressEvent(QKeyEvent *event) {
    if (event->key() == Qt::Key_Delete && (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier)
        m_state->perform(MacMailAction::delete_);
    else
        QWidget::keyPressEvent(event);
}

void EmailDetailView::render() {
    m_actionToasts->setToast(m_state->spamToast);
    m_copyToasts->setToast(m_state->copiedToast);
    renderContent();
    renderPushed();
    renderSheets();
    publish();
}

void EmailDetailView::renderContent() {
    const auto content = m_state->content();
    if (content == EmailDetailState::Content::loading)
        return showProgressSoon();
    m_progress.reset();
    m_toolbar->setVisible(content != EmailDetailState::Content::nothingSelected);
    if (content == EmailDetailState::Content::message)
        showMessage();
    else
        showPlaceholder();
}

void EmailDetailView::showMessage() {
    m_message->render();
    m_stack->setCurrentWidget(m_message);
    if (std::exchange(m_awaitsFocus, false))
        m_message->focusBody();
}

void EmailDetailView::showProgressSoon() {
    if (!m_progress)
        m_progress = Clock::shared().after(progressDelay, [this] { m_stack->setCurrentWidget(m_loading); });
}

void EmailDetailView::showPlaceholder() {
    m_placeholder->setTexts(m_state->placeholder());
    m_placeholder->setButton(m_state->content() == EmailDetailState::Content::failure ? tr("Try Again") : QString());
    m_stack->setCurrentWidget(m_placeholder);
    m_message->clear();
}

void EmailDetailView::renderPushed() {
    const auto pushed = m_state->pushed.get();
    if (m_pushed && m_pushed->m_state == pushed)
        return;
    const bool hadPushed = m_pushed;
    delete m_pushed;
    if (pushed) {
        m_pushed = new EmailDetailView(m_appState, pushed, *m_actions);
        connect(m_pushed, &EmailDetailView::bodyPainted, this, &EmailDetailView::bodyPainted);
        m_layers->addWidget(m_pushed);
        m_layers->setCurrentWidget(m_pushed);
    }
    if (pushed || hadPushed)
        focusBody();
}

// The topmost screen alone speaks to the menu bar.
void EmailDetailView::publish() {
    std::optional<bool> hasAttachments;
    if (!m_pushed && m_state->content() == EmailDetailState::Content::message)
        hasAttachments = m_state->hasAttachments();
    if (!m_actions || std::exchange(m_publishedAttachments, hasAttachments) == hasAttachments)
        return;
    if (!hasAttachments)
        return m_actions->publishMessage(std::nullopt);
    const auto perform = [state = std::weak_ptr(m_state)](MacMailAction action) {
        if (const auto shown = state.lock())
            shown->perform(action);
    };
    m_actions->publishMessage(MacMessageActions{*hasAttachments, perform});
}

void EmailDetailView::renderSheets() {
    if (m_state->showBlockConfirmation && !m_confirmation)
        confirmBlock();
    if (m_state->showSourceSheet && !m_source)
        showSource();
    if (!m_state->showBlockConfirmation && m_confirmation)
        m_confirmation->close();
    if (!m_state->showSourceSheet && m_source)
        m_source->close();
    if (m_source)
        m_source->showMessage(m_state->viewModel->isLoadingSource, m_state->viewModel->rawSource);
}

void EmailDetailView::confirmBlock() {
    m_confirmation = new ConfirmationSheet(tr("Block this sender?"),
                                           tr("Future messages from this sender will be blocked. This message will be "
                                              "permanently deleted."),
                                           this);
    m_confirmation->addChoice(tr("Block and Permanently Delete"), ButtonRole::destructive, m_state.get(),
                              [state = m_state.get()] { state->block(false); });
    connect(m_confirmation, &QDialog::finished, m_state.get(), [this] { m_state->showBlockConfirmation = false; });
    m_confirmation->open();
}

void EmailDetailView::showSource() {
    m_source = new SourceSheet(this);
    connect(m_source, &SourceSheet::copyRequested, m_state.get(), &EmailDetailState::copySource);
    connect(m_source, &QDialog::finished, m_state.get(), [this] { m_state->showSourceSheet = false; });
    m_source->open();
}

void EmailDetailView::focusBody() {
    if (m_pushed)
        return m_pushed->focusBody();
    m_awaitsFocus = m_stack->currentWidget() != m_message;
    if (!m_awaitsFocus)
        m_message->focusBody();
}

void EmailDetailView::pageBody(bool down) {
    if (m_pushed)
        m_pushed->pageBody(down);
    else
        m_message->page(down);
}

#include "mail/screens/EmailDetailView.h"

#include "mail/screens/EmailHTMLView.h"
#include "mail/screens/EmailHeaderView.h"
#include "mail/screens/PlainTextView.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/EmptyStateView.h"
#include "ui/screens/Spinner.h"
#include "ui/screens/Symbols.h"
#include "ui/screens/ThemeLabel.h"
#include "ui/screens/ToastPresenter.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QScrollBar>
#include <QStackedWidget>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace {

/// A message that comes sooner replaces the former one without a flicker of progress between them.
constexpr auto progressDelay = std::chrono::milliseconds(150);

} // namespace

EmailDetailView::EmailDetailView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                                 QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_state(std::move(state))
    , m_stack(new QStackedWidget)
    , m_loading(new QWidget)
    , m_placeholder(new EmptyStateView)
    , m_scroll(new QScrollArea)
    , m_textView(new PlainTextView)
    , m_toasts(new ToastPresenter(this)) {
    auto *loading = new QVBoxLayout(m_loading);
    loading->addWidget(new Spinner(28), 0, Qt::AlignCenter);
    m_scroll->setWidgetResizable(true);
    m_scroll->setFrameShape(QFrame::NoFrame);
    m_scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    m_scroll->setFocusPolicy(Qt::NoFocus);
    m_scroll->viewport()->setAutoFillBackground(false);
    m_scroll->setWidget(makeColumn());
    // The background behind the whole view shows through.
    m_scroll->widget()->setAutoFillBackground(false);
    m_stack->addWidget(m_loading);
    m_stack->addWidget(m_placeholder);
    m_stack->addWidget(m_scroll);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_stack);

    connect(m_toasts, &ToastPresenter::expired, m_state.get(), [this] { m_state->copiedToast = std::nullopt; });
    connect(m_state.get(), &EmailDetailState::copyRequested, this,
            [](const QString &text) { QGuiApplication::clipboard()->setText(text); });
    connect(m_placeholder, &EmptyStateView::buttonPressed, m_state.get(), &EmailDetailState::retry);
    observe(&m_appState->themeManager, this, &EmailDetailView::applyTheme);
    observe(m_state.get(), this, &EmailDetailView::render);
}

QWidget *EmailDetailView::makeColumn() {
    auto *column = new QWidget;
    m_imageBar = makeImageBar();
    m_bodyPlace = new QWidget;
    auto *body = new QVBoxLayout(m_bodyPlace);
    body->setContentsMargins(4, 0, 4, 0);
    body->addWidget(m_textView, 0, Qt::AlignTop);
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new EmailHeaderView(m_state));
    layout->addWidget(m_imageBar);
    layout->addWidget(m_bodyPlace);
    layout->addStretch(1);
    return column;
}

QWidget *EmailDetailView::makeImageBar() {
    auto *bar = new QWidget;
    auto *button = new QPushButton(tr("Show Images"));
    button->setAccessibleName(button->text());
    button->setIcon(symbolIcon(u"photo"_s));
    auto *note =
        new ThemeLabel(tr("Images are hidden to protect your privacy."), TextStyle::footnote, TextRole::secondary);
    note->setWordWrap(true);
    connect(button, &QPushButton::clicked, m_state.get(), &EmailDetailState::showImages);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(20, 0, 20, 10);
    layout->setSpacing(10);
    layout->addWidget(button);
    layout->addWidget(note, 1);
    return bar;
}

void EmailDetailView::applyTheme() {
    const auto &theme = m_appState->themeManager.currentTheme();
    m_textView->setTheme(theme);
    if (m_htmlView)
        m_htmlView->setTheme(theme);
}

void EmailDetailView::render() {
    m_toasts->setToast(m_state->copiedToast);
    if (m_state->content() != EmailDetailState::Content::loading)
        m_progress.reset();
    switch (m_state->content()) {
    case EmailDetailState::Content::loading:
        showProgressSoon();
        return;
    case EmailDetailState::Content::message:
        renderMessage();
        m_stack->setCurrentWidget(m_scroll);
        return;
    default:
        showPlaceholder();
    }
}

void EmailDetailView::showProgressSoon() {
    if (!m_progress)
        m_progress = Clock::shared().after(progressDelay, [this] { m_stack->setCurrentWidget(m_loading); });
}

void EmailDetailView::showPlaceholder() {
    m_placeholder->setTexts(m_state->placeholder());
    m_placeholder->setButton(m_state->content() == EmailDetailState::Content::failure ? tr("Try Again") : QString());
    m_stack->setCurrentWidget(m_placeholder);
}

void EmailDetailView::renderMessage() {
    m_imageBar->setVisible(m_state->offersImages());
    renderBody();
    const auto reference = m_state->reference.get();
    if (std::exchange(m_shown, reference) != reference)
        m_scroll->verticalScrollBar()->setValue(0);
}

void EmailDetailView::renderBody() {
    const auto &email = *m_state->viewModel->email.get();
    const auto body = m_state->body();
    if (body == EmailDetailState::Body::html) {
        htmlView()->setShowImages(m_state->viewModel->showImages);
        htmlView()->setHtml(*email.body_html);
    } else if (body == EmailDetailState::Body::text) {
        m_textView->setText(*email.body_text);
    }
    m_textView->setVisible(body == EmailDetailState::Body::text);
    if (m_htmlView)
        m_htmlView->setVisible(body == EmailDetailState::Body::html);
}

EmailHTMLView *EmailDetailView::htmlView() {
    if (m_htmlView)
        return m_htmlView;
    m_htmlView = new EmailHTMLView(m_bodyPlace);
    m_htmlView->setTheme(m_appState->themeManager.currentTheme());
    m_bodyPlace->layout()->addWidget(m_htmlView);
    connect(m_htmlView, &EmailHTMLView::linkActivated, this, &QDesktopServices::openUrl);
    connect(m_htmlView, &EmailHTMLView::painted, this, &EmailDetailView::bodyPainted);
    return m_htmlView;
}

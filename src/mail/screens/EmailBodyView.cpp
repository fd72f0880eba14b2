#include "mail/screens/EmailBodyView.h"

#include "mail/screens/EmailHTMLView.h"
#include "mail/screens/PlainTextView.h"
#include "ui/screens/StyleShapes.h"

#include <QApplication>
#include <QDesktopServices>
#include <QFocusEvent>
#include <QPainter>
#include <QVBoxLayout>

EmailBodyView::EmailBodyView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                             QWidget *parent)
    : QWidget(parent)
    , m_appState(std::move(appState))
    , m_state(std::move(state))
    , m_textView(new PlainTextView) {
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_textView, 0, Qt::AlignTop);
    connect(qApp, &QApplication::focusChanged, this, qOverload<>(&QWidget::update));
    observe(&m_appState->themeManager, this, &EmailBodyView::applyTheme);
}

void EmailBodyView::applyTheme() {
    const auto &theme = m_appState->themeManager.currentTheme();
    m_textView->setTheme(theme);
    if (m_htmlView)
        m_htmlView->setTheme(theme);
}

// A page leaves a rim for it; the text shows by itself that it has the focus.
void EmailBodyView::paintEvent(QPaintEvent *) {
    const bool hasFocus = m_htmlView && m_htmlView->isAncestorOf(QApplication::focusWidget());
    if (!hasFocus || !window()->testAttribute(Qt::WA_KeyboardFocusChange))
        return;
    QPainter painter(this);
    paintFocusRing(&painter, rect(), 0, m_appState->themeManager.currentTheme());
}

void EmailBodyView::render() {
    const auto &email = *m_state->viewModel->email.get();
    const auto body = m_state->body();
    m_textView->setText(body == EmailDetailState::Body::text ? *email.body_text : QString());
    m_textView->setVisible(body == EmailDetailState::Body::text);
    if (body == EmailDetailState::Body::html) {
        htmlView()->setShowImages(m_state->viewModel->showImages);
        htmlView()->setHtml(*email.body_html);
    } else if (m_htmlView) {
        m_htmlView->clear();
    }
    if (m_htmlView)
        m_htmlView->setVisible(body == EmailDetailState::Body::html);
    const int rim = body == EmailDetailState::Body::html ? int(StyleMetrics::focusRingWidth) : 0;
    layout()->setContentsMargins(rim, rim, rim, rim);
}

void EmailBodyView::clear() {
    m_textView->setText({});
    if (m_htmlView)
        m_htmlView->clear();
}

void EmailBodyView::copy() {
    if (m_state->body() == EmailDetailState::Body::html && m_htmlView)
        m_htmlView->copySelection();
    else
        m_textView->copy();
}

EmailHTMLView *EmailBodyView::htmlView() {
    if (m_htmlView)
        return m_htmlView;
    m_htmlView = new EmailHTMLView(this);
    m_htmlView->setTheme(m_appState->themeManager.currentTheme());
    layout()->addWidget(m_htmlView);
    connect(m_htmlView, &EmailHTMLView::linkActivated, this, &QDesktopServices::openUrl);
    connect(m_htmlView, &EmailHTMLView::linkHovered, this, &EmailBodyView::linkHovered);
    connect(m_htmlView, &EmailHTMLView::painted, this, &EmailBodyView::painted);
    return m_htmlView;
}

void EmailBodyView::focusInEvent(QFocusEvent *event) {
    if (m_state->body() == EmailDetailState::Body::html && m_htmlView)
        m_htmlView->setFocus(event->reason());
    else
        m_textView->setFocus(event->reason());
}

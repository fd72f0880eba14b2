#include "mail/screens/EmailMessageView.h"

#include "mail/screens/AttachmentSection.h"
#include "mail/screens/EmailActionBar.h"
#include "mail/screens/EmailBodyView.h"
#include "mail/screens/EmailHeaderView.h"
#include "mail/screens/LinkTargetLabel.h"
#include "mail/screens/ThreadSection.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/LayoutTabOrder.h"
#include "ui/screens/Symbols.h"
#include "ui/screens/ThemeLabel.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

EmailMessageView::EmailMessageView(std::shared_ptr<AppState> appState, std::shared_ptr<EmailDetailState> state,
                                   QWidget *parent)
    : ColumnScrollArea(parent)
    , m_state(std::move(state))
    , m_imageBar(makeImageBar())
    , m_body(new EmailBodyView(appState, m_state))
    , m_attachments(new AttachmentSection(std::move(appState), m_state))
    , m_linkTarget(new LinkTargetLabel(this)) {
    setFrameShape(QFrame::NoFrame);
    setWidget(makeColumn());
    new LayoutTabOrder(widget());
    // The background behind the whole view shows through.
    viewport()->setAutoFillBackground(false);
    widget()->setAutoFillBackground(false);
    connect(m_body, &EmailBodyView::painted, this, &EmailMessageView::bodyPainted);
    connect(m_body, &EmailBodyView::linkHovered, m_linkTarget, &LinkTargetLabel::setTarget);
    connect(qApp, &QApplication::focusChanged, this,
            [this](const QWidget *, const QWidget *focused) { forgetLinkTarget(focused); });
}

// The focus moves on while the parts of the screen go.
EmailMessageView::~EmailMessageView() {
    qApp->disconnect(this);
}

// The engine does not tell that the link lost the focus to what lies outside of its page.
void EmailMessageView::forgetLinkTarget(const QWidget *focused) {
    if (focused && !m_body->isAncestorOf(focused))
        m_linkTarget->setTarget({});
}

std::shared_ptr<AttachmentDownloads> EmailMessageView::downloads() const {
    return m_attachments->downloads();
}

QWidget *EmailMessageView::makeColumn() {
    auto *column = new QWidget;
    auto *layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(new EmailHeaderView(m_state));
    layout->addWidget(m_imageBar);
    layout->addWidget(m_body);
    layout->addWidget(m_attachments);
    layout->addWidget(new ThreadSection(m_state));
    layout->addWidget(new EmailActionBar(m_state));
    layout->addStretch(1);
    return column;
}

QWidget *EmailMessageView::makeImageBar() {
    auto *bar = new QWidget;
    auto *button = new QPushButton(tr("Show Images"));
    button->setAccessibleName(button->text());
    button->setIcon(symbolIcon(u"photo"_s));
    pressWithReturn(button);
    auto *note =
        new ThemeLabel(tr("Images are hidden to protect your privacy."), TextStyle::footnote, TextRole::secondary);
    note->setWordWrap(true);
    connect(button, &QPushButton::clicked, this, &EmailMessageView::showImages);
    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(20, 0, 20, 10);
    layout->setSpacing(10);
    layout->addWidget(button);
    layout->addWidget(note, 1);
    return bar;
}

// The button that had the focus goes away.
void EmailMessageView::showImages() {
    m_state->showImages();
    m_body->setFocus();
}

void EmailMessageView::render() {
    m_imageBar->setVisible(m_state->offersImages());
    m_body->render();
    const auto reference = m_state->reference.get();
    if (std::exchange(m_shown, reference) != reference)
        verticalScrollBar()->setValue(0);
}

void EmailMessageView::clear() {
    m_shown = std::nullopt;
    m_linkTarget->setTarget({});
    m_body->clear();
}

void EmailMessageView::focusBody() {
    m_body->setFocus();
}

void EmailMessageView::page(bool down) {
    verticalScrollBar()->triggerAction(down ? QAbstractSlider::SliderPageStepAdd : QAbstractSlider::SliderPageStepSub);
}

#include "mail/screens/EmailHeaderView.h"

#include "mail/screens/FaviconAvatarView.h"
#include "mail/screens/FlowingAddresses.h"
#include "ui/screens/Buttons.h"
#include "ui/screens/ClampedLabel.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QVBoxLayout>

namespace {

constexpr int avatarSize = 40;
/// A subject that takes more lines is cut off.
constexpr int subjectLines = 4;
/// A link's words begin this far inside it, and it is this tall.
constexpr int linkPadding = 4;
constexpr int linkHeight = 24;

} // namespace

EmailHeaderView::EmailHeaderView(std::shared_ptr<EmailDetailState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_subject(new ClampedLabel(subjectLines, TextStyle::title2)) {
    // The keyboard opens the menu where the focus is.
    m_subject->setFocusPolicy(Qt::TabFocus);
    m_subject->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_subject, &QWidget::customContextMenuRequested, this, &EmailHeaderView::showSubjectMenu);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 18, 20, 14);
    layout->setSpacing(0);
    layout->addWidget(m_subject);
    layout->addSpacing(12);
    layout->addWidget(makeSender());
    layout->addSpacing(8);
    m_to = makeRecipients(tr("To:"));
    m_cc = makeRecipients(tr("Cc:"));
    layout->addWidget(m_to.row);
    layout->addWidget(m_cc.row);
    observe(m_state.get(), this, &EmailHeaderView::render);
}

QWidget *EmailHeaderView::makeSender() {
    auto *row = new QWidget;
    m_avatar = new FaviconAvatarView(avatarSize);
    m_sender = new ClampedLabel(1, TextStyle::headline);
    m_sender->setContentsMargins(linkPadding, 0, 0, 0);
    m_address = new LinkButton({});
    m_address->setToolTip(tr("Click to copy"));
    m_date = new ThemeLabel({}, TextStyle::caption, TextRole::secondary);
    connect(m_address, &LinkButton::clicked, this, [this] { m_state->copyAddress(m_state->senderAddress()); });

    auto *texts = new QVBoxLayout;
    texts->setSpacing(0);
    texts->addWidget(m_sender);
    texts->addWidget(m_address, 0, Qt::AlignLeft);
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(12 - linkPadding);
    layout->addWidget(m_avatar);
    layout->addLayout(texts, 1);
    layout->addWidget(m_date, 0, Qt::AlignTop);
    return row;
}

EmailHeaderView::Recipients EmailHeaderView::makeRecipients(const QString &word) {
    const Recipients recipients{new QWidget, new FlowingAddresses};
    auto *label = new ThemeLabel(word, TextStyle::subheadline, TextRole::secondary);
    label->setMinimumHeight(linkHeight);
    auto *layout = new QHBoxLayout(recipients.row);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(linkPadding);
    layout->addWidget(label, 0, Qt::AlignTop);
    layout->addWidget(recipients.addresses, 1);
    connect(recipients.addresses, &FlowingAddresses::copyRequested, m_state.get(), &EmailDetailState::copyAddress);
    return recipients;
}

void EmailHeaderView::showRecipients(const Recipients &recipients,
                                     const std::optional<std::vector<EmailAddress>> &addresses) {
    recipients.addresses->setAddresses(addresses.value_or(std::vector<EmailAddress>()));
    recipients.row->setVisible(addresses && !addresses->empty());
}

void EmailHeaderView::showSubjectMenu(const QPoint &place) {
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(tr("Copy Subject"), m_state.get(), &EmailDetailState::copySubject);
    menu->popup(m_subject->mapToGlobal(place));
}

void EmailHeaderView::render() {
    const auto &email = m_state->viewModel->email.get();
    if (!email)
        return;
    m_subject->setText(m_state->subjectText());
    m_avatar->setPerson(m_state->senderDomain(), m_state->senderName());
    m_sender->setText(m_state->senderName());
    m_address->setText(literalButtonText(m_state->senderAddress()));
    m_address->setVisible(!m_state->senderAddress().isEmpty());
    m_date->setText(m_state->dateText());
    m_date->setToolTip(m_state->fullDateText());
    showRecipients(m_to, email->to);
    showRecipients(m_cc, email->cc);
}

#include "mail/screens/ThreadSection.h"

#include "mail/screens/ThreadLink.h"
#include "ui/screens/DisclosureButton.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

ThreadSection::ThreadSection(std::shared_ptr<EmailDetailState> state, QWidget *parent)
    : QWidget(parent)
    , m_state(std::move(state))
    , m_toggle(new DisclosureButton(u"bubble.left.and.text.bubble.right"_s))
    , m_list(new QWidget) {
    auto *links = new QVBoxLayout(m_list);
    links->setContentsMargins(0, 0, 0, 0);
    links->setSpacing(6);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(20, 12, 20, 0);
    layout->setSpacing(8);
    layout->addWidget(m_toggle, 0, Qt::AlignLeft);
    layout->addWidget(m_list);
    connect(m_toggle, &QAbstractButton::clicked, m_state.get(), &EmailDetailState::toggleThread);
    observe(m_state.get(), this, &ThreadSection::render);
}

void ThreadSection::render() {
    const auto &emails = m_state->viewModel->threadEmails.get();
    setVisible(!emails.empty());
    if (emails.empty())
        return;
    m_toggle->setText(m_state->threadTitle());
    m_toggle->setExpanded(m_state->showThreadExpanded);
    m_list->setVisible(m_state->showThreadExpanded);
    setLinks(emails);
}

void ThreadSection::setLinks(const std::vector<EmailSummary> &emails) {
    if (m_links == emails)
        return;
    m_links = emails;
    qDeleteAll(m_list->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly));
    for (const auto &email : emails) {
        auto *link = new ThreadLink(email);
        connect(link, &QAbstractButton::clicked, m_state.get(),
                [state = m_state.get(), uid = email.uid] { state->openRelated(uid); });
        m_list->layout()->addWidget(link);
    }
}

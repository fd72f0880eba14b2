#include "compose/SendOutcomes.h"

#include <algorithm>

SendOutcomes::Send::Send(SendOutcomes &outcomes)
    : m_outcomes(outcomes) {
    ++m_outcomes.m_sends;
}

SendOutcomes::Send::~Send() {
    --m_outcomes.m_sends;
    Q_EMIT m_outcomes.sendEnded(m_isSent);
}

std::vector<UnsentMessage> SendOutcomes::unsent(const QString &account) const {
    std::vector<UnsentMessage> own;
    std::ranges::copy_if(m_unsent, std::back_inserter(own),
                         [&](const UnsentMessage &message) { return message.account == account; });
    return own;
}

void SendOutcomes::add(UnsentMessage message) {
    m_unsent.push_back(std::move(message));
    scheduleChange();
}

std::shared_ptr<ComposeViewModel> SendOutcomes::take(const QUuid &id) {
    const auto found = std::ranges::find(m_unsent, id, &UnsentMessage::id);
    if (found == m_unsent.end())
        return nullptr;
    const auto message = found->message;
    m_unsent.erase(found);
    scheduleChange();
    return message;
}

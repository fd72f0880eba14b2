#pragma once

#include "platform/ObservableObject.h"

#include <QUuid>
#include <memory>
#include <optional>
#include <vector>

class ComposeViewModel;

/// A message that could not be sent, and whose screen had gone by then.
struct UnsentMessage {
    QUuid id = QUuid::createUuid();
    /// Whose it is; see `AppState::account`.
    QString account;
    QString subject, error;
    std::shared_ptr<ComposeViewModel> message;

    bool operator==(const UnsentMessage &) const = default;
};

/// What became of messages that were sent. Unsent ones whose screen was closed meanwhile are kept as long as the
/// program runs, each for its own account. Main thread only.
class SendOutcomes : public ObservableObject {
    Q_OBJECT
public:
    /// Those of the account, oldest first.
    std::vector<UnsentMessage> unsent(const QString &account) const;
    void add(UnsentMessage message);
    /// Gives the message away; null when there is none of this id.
    std::shared_ptr<ComposeViewModel> take(const QUuid &id);

    /// One message that is being sent, for as long as this lives. Not sent unless told so.
    class Send {
    public:
        explicit Send(SendOutcomes &outcomes);
        ~Send();
        Q_DISABLE_COPY_MOVE(Send)

        void succeeded() { m_isSent = true; }

    private:
        SendOutcomes &m_outcomes;
        bool m_isSent = false;
    };
    bool isSending() const { return m_sends > 0; }

Q_SIGNALS:
    void messageSent(const QString &account);
    /// Comes after `messageSent`, or after an unsent message was added.
    void sendEnded(bool isSent);

private:
    std::vector<UnsentMessage> m_unsent;
    int m_sends = 0;
};

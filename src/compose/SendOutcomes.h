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

Q_SIGNALS:
    void messageSent(const QString &account);

private:
    std::vector<UnsentMessage> m_unsent;
};

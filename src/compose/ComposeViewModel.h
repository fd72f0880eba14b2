#pragma once

#include "compose/ComposeRecords.h"
#include "platform/ObservableObject.h"

#include <QCoroTask>
#include <memory>

/// One message while it is being written. It exists only here until it is sent. Main thread only, made with
/// `std::make_shared`.
class ComposeViewModel : public ObservableObject, public std::enable_shared_from_this<ComposeViewModel> {
    Q_OBJECT
public:
    /// As typed: addresses separated by commas.
    Published<QString> to{this}, cc{this}, bcc{this};
    Published<QString> subject{this};
    /// HTML.
    Published<QString> body{this};
    Published<bool> showCc{this, false}, showBcc{this, false};
    /// Empty when the server is to choose.
    Published<QString> fromAddress{this};
    Published<std::vector<ComposeAttachment>> attachments{this};
    Published<std::vector<ForwardedAttachment>> forwardedAttachments{this};
    Published<bool> isSending{this, false};
    /// The one message that the screen shows.
    Published<std::optional<QString>> errorMessage{this};
    Published<std::vector<QString>> fromAddresses{this};

    void prepareReply(const EmailDetail &email, bool replyAll);
    void prepareForward(const EmailDetail &email);
    /// Carries the attachments of `email`, but for the images of its body.
    void populateForwardedAttachments(const EmailDetail &email);
    /// Never fails: without an answer there is nothing to choose from.
    QCoro::Task<> loadFromAddresses();

    /// Says so in `errorMessage` when the attachments would weigh too much together.
    void addAttachment(const QString &filename, const QByteArray &data, const QString &contentType);
    void removeAttachment(const QUuid &id);
    void removeForwardedAttachment(const QUuid &id);
    /// What the files weigh that the program holds, in bytes.
    qint64 attachmentsSize() const;

    /// Whether the server took the message. On false everything is still here, and `errorMessage` says why, unless a
    /// send is running already.
    QCoro::Task<bool> send();

private:
    QString otherRecipients(const EmailDetail &email) const;
    /// What is missing before the message can be sent.
    std::optional<QString> missing() const;
    EmailSendRequest request() const;
};

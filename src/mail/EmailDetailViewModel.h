#pragma once

#include "mail/EmailService.h"
#include "platform/ObservableObject.h"

#include <QUuid>
#include <memory>

/// One opened message with its related messages and its source. Of overlapping loads only the newest counts. Main
/// thread only, made with `std::make_shared`.
class EmailDetailViewModel : public ObservableObject, public std::enable_shared_from_this<EmailDetailViewModel> {
    Q_OBJECT
public:
    Published<std::optional<EmailDetail>> email{this};
    Published<bool> isLoading{this, false};
    /// Why the last load failed.
    Published<std::optional<QString>> errorMessage{this};
    /// The person chose to see the images of the message on show; whoever shows another one takes the choice back.
    Published<bool> showImages{this, false};
    /// Related messages, oldest first.
    Published<std::vector<EmailSummary>> threadEmails{this};
    /// The raw source, or why it could not be loaded.
    Published<std::optional<QString>> rawSource{this};
    Published<bool> isLoadingSource{this, false};
    /// The ticket of the newest load.
    Published<QUuid> loadID{this, QUuid::createUuid()};
    Published<QString> loadedFolder{this};

    /// Loads the message, then what is related to it.
    QCoro::Task<> loadEmail(qint64 uid, QString folder);
    /// Related is what has the same subject in the same folder.
    QCoro::Task<> loadThread(qint64 uid, QString folder);
    QCoro::Task<> loadSource(qint64 uid, QString folder);

    /// The subject without the prefixes of replies and forwards, however many.
    static QString normalizedSubject(const QString &subject);

private:
    QUuid beginLoad(const QString &folder);
    void failLoad(qint64 uid, const QString &folder, const QString &error);
    bool shows(qint64 uid, const QString &folder) const;

    EmailService m_emailService;
    /// The number of the newest load of a source.
    int m_sourceLoad = 0;
};

#pragma once

#include "app/AppState.h"
#include "mail/MacMailAction.h"
#include "mail/MailboxViewModel.h"
#include "ui/ToastMessage.h"

/// The source of a message for the sheet; each showing is one of its own.
struct RowSourceItem {
    QUuid id = QUuid::createUuid();
    QString source;

    bool operator==(const RowSourceItem &) const = default;
};

/// What can be done to the messages of one list, one by one or selected together, and what is asked or told in the
/// course of it. Every change is made in `requestFolder` as it is when the change is asked for.
class EmailListActions : public ObservableObject, public std::enable_shared_from_this<EmailListActions> {
    Q_OBJECT
public:
    EmailListActions(std::shared_ptr<AppState> appState, std::shared_ptr<MailboxViewModel> model);

    /// The real path of the folder on show.
    QString requestFolder;

    /// Which dialog is up.
    Published<bool> showDeleteConfirm{this, false}, showSpamConfirm{this, false}, showBlockConfirm{this, false};
    Published<bool> isCheckingSpam{this, false};
    /// The end of a scan or a block.
    Published<std::optional<ToastMessage>> spamToast{this};
    Published<std::optional<ToastMessage>> copiedToast{this};
    /// The source that is shown.
    Published<std::optional<RowSourceItem>> rowSource{this};

    bool isJunkFolder() const;
    bool canCheckSpam() const;

    void reply(qint64 uid, bool toAll);
    void forward(qint64 uid);
    void deleteRow(qint64 uid);
    void archive(qint64 uid);
    void move(qint64 uid, const QString &toFolder);
    void markAsSpam(qint64 uid);
    void markAsNotSpam(qint64 uid);
    void toggleRead(const EmailSummary &email);
    void toggleStar(const EmailSummary &email);
    void block(const EmailSummary &email, bool byDomain);
    void viewSource(qint64 uid);
    void noteSourceCopied();

    void archiveSelected();
    void deleteSelected();
    void moveSelected(const QString &toFolder);
    /// Into the junk folder, or out of it where that is the folder on show.
    void toggleSpamOfSelected();
    void blockSelected(bool byDomain);
    /// Marks the selected messages as read if any is unread, else as unread.
    void toggleReadOfSelected();
    void toggleFlagOfSelected();
    void checkSpam();

private:
    using Prepare = void (*)(AppState &appState, const EmailDetail &email);

    static QCoro::Task<> write(std::shared_ptr<AppState> appState, qint64 uid, QString folder, Prepare prepare);
    QCoro::Task<> blockOne(EmailSummary email, QString folder, bool byDomain);
    QCoro::Task<> blockAll(QString folder, bool byDomain);
    QCoro::Task<> readSource(qint64 uid, QString folder);
    QCoro::Task<> scan(QString folder, QString junkFolder);
    bool anySelectedLacks(std::optional<bool> EmailSummary::*flag) const;

    std::shared_ptr<AppState> m_appState;
    std::shared_ptr<MailboxViewModel> m_model;
};

#pragma once

#include "app/AppState.h"
#include "mail/EmailDetailViewModel.h"
#include "mail/EmailNavItem.h"
#include "mail/EmailWindowRef.h"
#include "mail/MacMailAction.h"
#include "ui/MenuEntry.h"
#include "ui/ToastMessage.h"
#include "ui/ViewTexts.h"

/// What the message screen decides: which of its contents shows, the texts of the header, copying, the actions on the
/// message, and the way to related messages and back.
class EmailDetailState : public ObservableObject, public std::enable_shared_from_this<EmailDetailState> {
    Q_OBJECT
public:
    enum class Content { nothingSelected, loading, moved, failure, message };
    enum class Body { none, html, text };

    static std::shared_ptr<EmailDetailState> make(std::shared_ptr<AppState> appState);

    const std::shared_ptr<EmailDetailViewModel> viewModel = std::make_shared<EmailDetailViewModel>();

    /// The message on show; `folder` is the real folder path.
    Published<std::optional<EmailWindowRef>> reference{this};
    /// The message left its folder from here.
    Published<bool> messageMoved{this, false};
    Published<bool> showBlockConfirmation{this, false};
    Published<bool> showSourceSheet{this, false};
    /// The related messages are listed.
    Published<bool> showThreadExpanded{this, false};
    Published<bool> isCheckingSpam{this, false};
    /// The result of an action.
    Published<std::optional<ToastMessage>> spamToast{this};
    /// The result of copying.
    Published<std::optional<ToastMessage>> copiedToast{this};
    /// The screen of a related message that lies over this one.
    Published<std::shared_ptr<EmailDetailState>> pushed{this};

    /// What `MacMailAction::saveAttachments` does; set by whoever shows the attachments.
    std::function<void()> saveAllAttachments;

    /// Shows this message, or none. The same one again does nothing.
    void show(const std::optional<EmailWindowRef> &wanted);
    void retry();

    Content content() const;
    Body body() const;
    /// What to show where there is no message.
    ViewTexts placeholder() const;
    bool offersImages() const;
    void showImages();

    QString subjectText() const;
    QString senderName() const;
    QString senderAddress() const;
    QString senderDomain() const;
    QString dateText() const;
    /// The whole date, for a person who wants to know exactly.
    QString fullDateText() const;
    void copySubject();
    void copyAddress(const QString &address);
    void copySource(const QString &source);

    /// Whether the message has any attachment, shown or not.
    bool hasAttachments() const;
    /// The attachments that are not part of the body.
    std::vector<EmailAttachment> shownAttachments() const;

    bool isSeen() const;
    bool isFlagged() const;
    /// Does nothing while there is no message.
    void perform(MacMailAction action);
    /// Blocks the sender, or the sender's whole domain, and deletes the message for good.
    void block(bool byDomain);
    void checkSpam();
    /// The entries of the menu "More".
    MenuSection moreEntries();

    QString threadTitle() const;
    void toggleThread();
    void open(const EmailNavItem &item);
    /// Opens a message of the same folder.
    void openRelated(qint64 uid);
    /// Whether another message screen lies below this one.
    bool isPushed() const { return m_isPushed; }
    void goBack();

Q_SIGNALS:
    /// Text for the clipboard.
    void copyRequested(const QString &text);
    /// The window or the column is to close this message.
    void dismissRequested();

private:
    explicit EmailDetailState(std::shared_ptr<AppState> appState);
    const EmailAddress *sender() const;
    QString blockedAddress() const;
    void copy(const QString &text, const QString &confirmation);
    void fail(const QString &words);

    void reply(bool toAll);
    void forward();
    QCoro::Task<> toggleFlag(QString name, std::optional<bool> EmailDetail::*flag);
    void takeFlag(const QString &folder, const std::vector<qint64> &uids, const QString &name, bool value);
    QString moveTarget(MacMailAction action) const;
    QCoro::Task<> move(QString target);
    QCoro::Task<> blockSender(bool byDomain);
    QCoro::Task<> scoreSpam();
    QCoro::Task<> judge(EmailWindowRef checked, double score);
    QCoro::Task<> loadSource();

    std::shared_ptr<AppState> m_appState;
    bool m_isPushed = false;
};

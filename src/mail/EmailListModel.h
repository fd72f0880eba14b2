#pragma once

#include "mail/EmailRecords.h"
#include "platform/Clock.h"
#include "ui/RowListModel.h"

/// One row of a message list, ready to be painted.
struct EmailRow {
    qint64 uid = 0;
    /// Of the sender, or of the recipient in a sent folder.
    QString name, domain;
    QString subject;
    /// One line of the body, at most 200 characters; empty for none.
    QString preview;
    QString dateText;
    bool isUnread = false, isFlagged = false, hasAttachment = false;
    /// All that the row shows, in words.
    QString accessibleText;

    qint64 identity() const { return uid; }
    bool operator==(const EmailRow &) const = default;
};

EmailRow emailRow(const EmailSummary &email, bool isSentFolder);

/// The rows of a message list, known by their uids. Their texts are prepared here, not while painting.
class EmailListModel : public RowListModel<EmailRow> {
    Q_OBJECT
public:
    enum Role {
        UIDRole = Qt::UserRole,
        NameRole,
        DomainRole,
        SubjectRole,
        PreviewRole,
        DateTextRole,
        IsUnreadRole,
        IsFlaggedRole,
        HasAttachmentRole
    };

    using RowListModel::RowListModel;

    /// The list's messages; a uid that comes twice is shown once.
    void setEmails(const std::vector<EmailSummary> &emails, bool isSentFolder);

    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    void prepareRows();
    void renewAtMidnight();

    std::vector<EmailSummary> m_emails;
    bool m_isSentFolder = false;
    /// Yesterday's messages no longer show a time of day.
    ScheduledWorkPtr m_midnight;
};

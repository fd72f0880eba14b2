#pragma once

#include "mail/EmailRecords.h"
#include "platform/Clock.h"

#include <QAbstractListModel>

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

    bool operator==(const EmailRow &) const = default;
};

EmailRow emailRow(const EmailSummary &email, bool isSentFolder);

/// The rows of a message list. New rows come in as the smallest change by uid, so that a reload keeps scroll position,
/// selection and focus. Their texts are prepared here, not while painting.
class EmailListModel : public QAbstractListModel {
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

    using QAbstractListModel::QAbstractListModel;

    /// The list's messages; a uid that comes twice is shown once.
    void setEmails(const std::vector<EmailSummary> &emails, bool isSentFolder);

    const EmailRow &row(int index) const { return m_rows[index]; }
    /// The place of a message; -1 when it is not in the list.
    int indexOf(qint64 uid) const;

    int rowCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;

private:
    void prepareRows();
    void update(const std::vector<EmailRow> &rows);
    void removeMissing(const std::vector<EmailRow> &rows);
    void placeRow(int place, const std::vector<EmailRow> &rows);
    void insertRun(int place, const std::vector<EmailRow> &rows);
    void moveRow(int from, int to);
    void replaceChanged(const std::vector<EmailRow> &rows);
    void renewAtMidnight();

    std::vector<EmailSummary> m_emails;
    bool m_isSentFolder = false;
    std::vector<EmailRow> m_rows;
    /// Yesterday's messages no longer show a time of day.
    ScheduledWorkPtr m_midnight;
};

#include "mail/EmailListModel.h"

#include "mail/EmailDates.h"
#include "mail/TextPreview.h"

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype previewLength = 500;

QString accessibleText(const EmailRow &row) {
    QStringList parts;
    if (row.isUnread)
        parts.append(u"Unread"_s);
    if (row.isFlagged)
        parts.append(u"Starred"_s);
    parts << row.name << row.subject;
    if (!row.preview.isEmpty())
        parts.append(row.preview);
    if (row.hasAttachment)
        parts.append(u"Has attachment"_s);
    parts.append(row.dateText);
    return parts.join(u", "_s);
}

} // namespace

EmailRow emailRow(const EmailSummary &email, bool isSentFolder) {
    EmailRow row{.uid = email.uid,
                 .name = isSentFolder ? email.recipientName() : email.senderName(),
                 .domain = addressDomain(isSentFolder ? email.recipientAddress() : email.senderAddress()),
                 .subject = email.subject.value_or(u"(No Subject)"_s),
                 .preview = compactPreview(email.body_text.value_or(QString()), previewLength),
                 .dateText = relativeDateText(parseEmailDate(email.date)),
                 .isUnread = !email.seen.value_or(false),
                 .isFlagged = email.flagged.value_or(false),
                 .hasAttachment = email.has_attachment.value_or(false)};
    row.accessibleText = accessibleText(row);
    return row;
}

void EmailListModel::setEmails(const std::vector<EmailSummary> &emails, bool isSentFolder) {
    if (emails == m_emails && isSentFolder == m_isSentFolder)
        return;
    m_emails = emails;
    m_isSentFolder = isSentFolder;
    prepareRows();
}

void EmailListModel::prepareRows() {
    std::vector<EmailRow> rows;
    for (const auto &email : m_emails)
        rows.push_back(emailRow(email, m_isSentFolder));
    setRows(std::move(rows));
    renewAtMidnight();
}

void EmailListModel::renewAtMidnight() {
    const auto now = Clock::shared().now().toLocalTime();
    const auto untilMidnight = std::chrono::milliseconds(now.msecsTo(now.date().addDays(1).startOfDay()));
    m_midnight = Clock::shared().after(untilMidnight, [this] { prepareRows(); });
}

QVariant EmailListModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const auto &shown = row(index.row());
    switch (role) {
    case UIDRole:
        return shown.uid;
    case Qt::DisplayRole:
    case NameRole:
        return shown.name;
    case DomainRole:
        return shown.domain;
    case SubjectRole:
        return shown.subject;
    case PreviewRole:
        return shown.preview;
    case DateTextRole:
        return shown.dateText;
    case IsUnreadRole:
        return shown.isUnread;
    case IsFlaggedRole:
        return shown.isFlagged;
    case HasAttachmentRole:
        return shown.hasAttachment;
    case Qt::AccessibleTextRole:
        return shown.accessibleText;
    default:
        return {};
    }
}

Qt::ItemFlags EmailListModel::flags(const QModelIndex &index) const {
    const auto flags = QAbstractListModel::flags(index);
    return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

#include "mail/EmailListModel.h"

#include "mail/EmailDates.h"
#include "mail/TextPreview.h"

#include <algorithm>
#include <set>

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

auto withUID(qint64 uid) {
    return [uid](const EmailRow &row) { return row.uid == uid; };
}

bool contains(const std::vector<EmailRow> &rows, qint64 uid) {
    return std::any_of(rows.begin(), rows.end(), withUID(uid));
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
    std::set<qint64> seen;
    for (const auto &email : m_emails)
        if (seen.insert(email.uid).second)
            rows.push_back(emailRow(email, m_isSentFolder));
    update(rows);
    renewAtMidnight();
}

void EmailListModel::renewAtMidnight() {
    const auto now = Clock::shared().now().toLocalTime();
    const auto untilMidnight = std::chrono::milliseconds(now.msecsTo(now.date().addDays(1).startOfDay()));
    m_midnight = Clock::shared().after(untilMidnight, [this] { prepareRows(); });
}

void EmailListModel::update(const std::vector<EmailRow> &rows) {
    removeMissing(rows);
    for (int place = 0; place < int(rows.size()); ++place)
        placeRow(place, rows);
    replaceChanged(rows);
}

void EmailListModel::removeMissing(const std::vector<EmailRow> &rows) {
    const auto isMissing = [&](const EmailRow &row) { return !contains(rows, row.uid); };
    for (int last = int(m_rows.size()) - 1; last >= 0; --last) {
        if (!isMissing(m_rows[last]))
            continue;
        int first = last;
        while (first > 0 && isMissing(m_rows[first - 1]))
            --first;
        beginRemoveRows({}, first, last);
        m_rows.erase(m_rows.begin() + first, m_rows.begin() + last + 1);
        endRemoveRows();
        last = first;
    }
}

void EmailListModel::placeRow(int place, const std::vector<EmailRow> &rows) {
    const auto uid = rows[place].uid;
    if (place < int(m_rows.size()) && m_rows[place].uid == uid)
        return;
    if (const int present = indexOf(uid); present >= 0)
        moveRow(present, place);
    else
        insertRun(place, rows);
}

void EmailListModel::insertRun(int place, const std::vector<EmailRow> &rows) {
    auto end = rows.begin() + place;
    while (end != rows.end() && indexOf(end->uid) < 0)
        ++end;
    beginInsertRows({}, place, int(end - rows.begin()) - 1);
    m_rows.insert(m_rows.begin() + place, rows.begin() + place, end);
    endInsertRows();
}

void EmailListModel::moveRow(int from, int to) {
    beginMoveRows({}, from, from, {}, to);
    std::rotate(m_rows.begin() + to, m_rows.begin() + from, m_rows.begin() + from + 1);
    endMoveRows();
}

void EmailListModel::replaceChanged(const std::vector<EmailRow> &rows) {
    for (int place = 0; place < int(rows.size()); ++place) {
        if (m_rows[place] == rows[place])
            continue;
        m_rows[place] = rows[place];
        Q_EMIT dataChanged(index(place), index(place));
    }
}

int EmailListModel::indexOf(qint64 uid) const {
    const auto row = std::find_if(m_rows.begin(), m_rows.end(), withUID(uid));
    return row == m_rows.end() ? -1 : int(row - m_rows.begin());
}

int EmailListModel::rowCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : int(m_rows.size());
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

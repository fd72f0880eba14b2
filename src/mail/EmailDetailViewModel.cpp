#include "mail/EmailDetailViewModel.h"

#include <QTextStream>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 threadPageSize = 50;

QString withoutBlanks(QStringView text) {
    const auto isBlank = [](QChar character) { return character == u' ' || character == u'\t'; };
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text.toString();
}

/// What the subjects of one thread have in common.
QString threadSubject(const std::optional<QString> &subject) {
    return EmailDetailViewModel::normalizedSubject(subject.value_or(QString())).toLower();
}

std::vector<EmailSummary> relatedEmails(std::vector<EmailSummary> found, qint64 uid, const QString &subject) {
    std::erase_if(found, [&](const EmailSummary &candidate) {
        return candidate.uid == uid || threadSubject(candidate.subject) != subject;
    });
    std::stable_sort(found.begin(), found.end(), [](const EmailSummary &one, const EmailSummary &other) {
        return one.timestamp.value_or(0) < other.timestamp.value_or(0);
    });
    return found;
}

} // namespace

QString EmailDetailViewModel::normalizedSubject(const QString &subject) {
    auto text = withoutBlanks(subject);
    const auto prefixLength = [&]() -> qsizetype {
        for (const auto prefix : {"re:"_L1, "fwd:"_L1, "fw:"_L1})
            if (text.startsWith(prefix, Qt::CaseInsensitive))
                return prefix.size();
        return 0;
    };
    while (const auto length = prefixLength())
        text = withoutBlanks(QStringView(text).sliced(length));
    return text;
}

QCoro::Task<> EmailDetailViewModel::loadEmail(qint64 uid, QString folder) {
    const auto self = shared_from_this();
    const auto ticket = beginLoad(folder);
    try {
        const auto loaded = co_await m_emailService.getEmail(uid, folder);
        if (loadID.get() != ticket)
            co_return;
        email = loaded;
        isLoading = false;
    } catch (const std::exception &) {
        if (loadID.get() == ticket)
            failLoad(uid, folder, errorText(std::current_exception()));
        co_return;
    }
    co_await loadThread(uid, folder);
}

QUuid EmailDetailViewModel::beginLoad(const QString &folder) {
    loadID = QUuid::createUuid();
    loadedFolder = folder;
    isLoading = true;
    errorMessage = std::nullopt;
    email = std::nullopt;
    threadEmails = {};
    return loadID;
}

void EmailDetailViewModel::failLoad(qint64 uid, const QString &folder, const QString &error) {
    QTextStream(stdout) << "[EmailDetail] loadEmail(" << uid << ", " << folder << ") failed: " << error << Qt::endl;
    errorMessage = error;
    isLoading = false;
}

QCoro::Task<> EmailDetailViewModel::loadThread(qint64 uid, QString folder) {
    const auto self = shared_from_this();
    const auto subject = email.get() ? threadSubject(email.get()->subject) : QString();
    if (subject.isEmpty())
        co_return;
    const EmailQuery query{.folder = folder, .perPage = threadPageSize, .search = subject};
    try {
        const auto response = co_await m_emailService.listEmails(query);
        if (shows(uid, folder))
            threadEmails = relatedEmails(response.emails, uid, subject);
    } catch (const std::exception &) {
        // Without an answer the message stands alone.
    }
}

bool EmailDetailViewModel::shows(qint64 uid, const QString &folder) const {
    return email.get() && email.get()->uid == uid && loadedFolder.get() == folder;
}

QCoro::Task<> EmailDetailViewModel::loadSource(qint64 uid, QString folder) {
    const auto self = shared_from_this();
    const auto load = ++m_sourceLoad;
    isLoadingSource = true;
    QString text;
    try {
        const auto source = co_await m_emailService.getSource(uid, folder);
        text = source;
    } catch (const std::exception &) {
        text = u"Failed to load source: "_s + errorText(std::current_exception());
    }
    if (load != m_sourceLoad)
        co_return;
    rawSource = text;
    isLoadingSource = false;
}

#include "mail/AttachmentDownloads.h"

#include "mail/EmailService.h"
#include "platform/Tasks.h"
#include "ui/FileSizeText.h"

using namespace Qt::StringLiterals;

namespace {

QString attachmentName(const EmailAttachment &attachment) {
    return attachment.filename.value_or(u"file"_s);
}

} // namespace

bool canPreviewAttachment(const QString &mime) {
    return mime.startsWith("image/"_L1) || mime.startsWith("text/"_L1) || mime == "application/pdf"_L1;
}

std::shared_ptr<AttachmentDownloads> AttachmentDownloads::make(std::shared_ptr<AppState> appState) {
    return std::shared_ptr<AttachmentDownloads>(new AttachmentDownloads(std::move(appState)));
}

AttachmentDownloads::AttachmentDownloads(std::shared_ptr<AppState> appState)
    : m_appState(std::move(appState)) {
    connect(m_appState.get(), &ObservableObject::changed, this, [this] {
        if (!m_appState->isAuthenticated)
            ++m_session;
    });
}

void AttachmentDownloads::open(const EmailWindowRef &message, const EmailAttachment &attachment) {
    launch(deliver(message, attachment, canPreviewAttachment(attachment.mimeType().toLower())));
}

void AttachmentDownloads::save(const EmailWindowRef &message, const EmailAttachment &attachment) {
    launch(deliver(message, attachment, false));
}

void AttachmentDownloads::saveAll(const EmailWindowRef &message) {
    launch(deliverAll(message));
}

MacAttachmentRow AttachmentDownloads::row(const EmailWindowRef &message, const EmailAttachment &attachment) {
    const auto self = shared_from_this();
    return {.filename = attachmentName(attachment),
            .mime = attachment.mimeType().toLower(),
            .size = attachment.size.value_or(0),
            .download = [=] { return EmailService::downloadAttachment(message.uid, message.folder, attachment); },
            .open = [=] { self->open(message, attachment); },
            .save = [=] { self->save(message, attachment); },
            .failure = [=](const QString &text) { Q_EMIT self->failed(text); }};
}

QString AttachmentDownloads::progressText() const {
    if (totalBytes > 0)
        return u"%1 / %2 · %3%"_s.arg(fileSizeText(downloadedBytes), fileSizeText(totalBytes))
            .arg(int(downloadProgress * 100));
    return downloadedBytes > 0 ? fileSizeText(downloadedBytes) : QString();
}

QCoro::Task<> AttachmentDownloads::deliver(EmailWindowRef message, EmailAttachment attachment, bool preview) {
    const auto self = shared_from_this();
    const auto name = attachmentName(attachment);
    const Fetch request = [=](DownloadProgress progress) {
        return EmailService::downloadAttachment(message.uid, message.folder, attachment, std::move(progress));
    };
    const auto bytes = co_await fetch(name, request);
    if (!bytes || bytes->isEmpty())
        co_return;
    if (preview)
        Q_EMIT previewRequested(name, attachment.mimeType().toLower(), *bytes);
    else
        Q_EMIT savePanelRequested(name, *bytes);
}

QCoro::Task<> AttachmentDownloads::deliverAll(EmailWindowRef message) {
    const auto self = shared_from_this();
    const auto name = u"attachments_%1.zip"_s.arg(message.uid);
    const Fetch request = [=](DownloadProgress progress) {
        return EmailService::downloadAttachmentsZip(message.uid, message.folder, std::move(progress));
    };
    const auto bytes = co_await fetch(name, request);
    if (bytes)
        Q_EMIT savePanelRequested(name, *bytes);
}

QCoro::Task<std::optional<QByteArray>> AttachmentDownloads::fetch(QString name, Fetch request) {
    begin(name);
    const auto download = m_current;
    const auto session = m_session;
    std::optional<QByteArray> bytes;
    QString failure;
    try {
        auto progress = progressOf(download);
        auto received = co_await request(std::move(progress));
        bytes = std::move(received);
    } catch (...) {
        failure = errorText(std::current_exception());
    }
    end(download);
    if (session != m_session)
        co_return std::nullopt;
    if (!bytes)
        Q_EMIT failed(u"Download failed: "_s + failure);
    co_return bytes;
}

void AttachmentDownloads::begin(const QString &name) {
    ++m_current;
    downloadingName = name;
    downloadProgress = 0;
    downloadedBytes = 0;
    totalBytes = 0;
}

DownloadProgress AttachmentDownloads::progressOf(quint64 download) {
    return [this, download](qint64 received, qint64 total, double fraction) {
        if (download != m_current)
            return;
        downloadedBytes = received;
        totalBytes = total;
        downloadProgress = fraction;
    };
}

void AttachmentDownloads::end(quint64 download) {
    if (download == m_current)
        downloadingName = std::nullopt;
}

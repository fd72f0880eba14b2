#pragma once

#include "app/AppState.h"
#include "mail/EmailRecords.h"
#include "mail/EmailWindowRef.h"
#include "mail/MacAttachmentRow.h"
#include "net/APIClient.h"

/// Fetches the attachments of one message screen, and what its download line shows meanwhile. A download runs to its
/// end when the screen is closed before, but nothing comes of it once the session is over.
class AttachmentDownloads : public ObservableObject, public std::enable_shared_from_this<AttachmentDownloads> {
    Q_OBJECT
public:
    static std::shared_ptr<AttachmentDownloads> make(std::shared_ptr<AppState> appState);

    /// The file that is on its way; the one begun last when there are several.
    Published<std::optional<QString>> downloadingName{this};
    /// From 0 to 1; stays 0 while the length is unknown.
    Published<double> downloadProgress{this, 0};
    Published<qint64> downloadedBytes{this, 0}, totalBytes{this, 0};

    /// Previews the attachment, or offers to save what has no preview.
    void open(const EmailWindowRef &message, const EmailAttachment &attachment);
    void save(const EmailWindowRef &message, const EmailAttachment &attachment);
    /// Offers all attachments of the message as one archive.
    void saveAll(const EmailWindowRef &message);
    /// `attachment` and what can be done with it.
    MacAttachmentRow row(const EmailWindowRef &message, const EmailAttachment &attachment);

    /// Bytes and percentage for the download line; empty while nothing has come.
    QString progressText() const;

Q_SIGNALS:
    void previewRequested(const QString &filename, const QString &mime, const QByteArray &bytes);
    void savePanelRequested(const QString &filename, const QByteArray &bytes);
    /// A text for an error toast.
    void failed(const QString &text);

private:
    using Fetch = std::function<QCoro::Task<QByteArray>(DownloadProgress)>;

    explicit AttachmentDownloads(std::shared_ptr<AppState> appState);
    QCoro::Task<> deliver(EmailWindowRef message, EmailAttachment attachment, bool preview);
    QCoro::Task<> deliverAll(EmailWindowRef message);
    /// The bytes; absent when there are none to use, and a failure has been told.
    QCoro::Task<std::optional<QByteArray>> fetch(QString name, Fetch request);
    void begin(const QString &name);
    DownloadProgress progressOf(quint64 download);
    void end(quint64 download);

    std::shared_ptr<AppState> m_appState;
    /// The download that the line shows.
    quint64 m_current = 0;
    /// Which session the downloads belong to.
    quint64 m_session = 0;
};

/// Whether a preview window can show files of this type, which is in lower case.
bool canPreviewAttachment(const QString &mime);

#pragma once

#include "app/AppState.h"
#include "mail/screens/AttachmentPreviewWindow.h"

#include <QPointer>
#include <QScreen>
#include <QUrl>
#include <QUuid>
#include <map>

/// One attachment as it came from the server.
struct ReceivedFile {
    QString filename;
    /// In lower case.
    QString mime;
    QByteArray bytes;
};

/// The controller of one preview window. Windows outlive the message screen; they close when the session ends.
class MacAttachmentPreview final : public QObject {
    Q_OBJECT
public:
    /// Writes a short-lived copy and shows it in a new window on `screen`, which may be null; `failure` is told the
    /// text of an error toast.
    static void open(ReceivedFile file, std::shared_ptr<AppState> appState, QPointer<QScreen> screen,
                     std::function<void(const QString &)> failure);

    MacAttachmentPreview(const QString &path, const QString &mime, QScreen *screen);
    ~MacAttachmentPreview() override;

    const QUuid id = QUuid::createUuid();
    const QUrl fileURL;

    void closeWith(const AppState *appState);
    AttachmentPreviewWindow *preview() const { return m_preview; }

private:
    void forget();

    QPointer<AttachmentPreviewWindow> m_preview;
};

/// Keeps the controllers of the open windows alive. Main thread only.
std::map<QUuid, std::unique_ptr<MacAttachmentPreview>> &openPreviews();

#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QSet>
#include <QString>

/// The short-lived copies of attachments: one folder for each, in a folder that only its owner can look into. Copies
/// are swept away a day after they were made, unless they are open. Main thread only.
class AttachmentPreviewFolder {
public:
    /// The folder "CorvaniteAttachmentPreviews" for temporary files.
    static AttachmentPreviewFolder &shared();
    explicit AttachmentPreviewFolder(QString base);

    /// Sweeps, and makes a new folder with an unused name. Fails with `Error`.
    QCoro::Task<QString> makeFolder();
    /// Writes the bytes into a new folder and returns the path of the file. Fails with `Error`.
    QCoro::Task<QString> store(QString filename, QByteArray bytes);

    /// The file is open: a sweep leaves its folder until `release`.
    void keep(const QString &file);
    void release(const QString &file);

private:
    QString m_base;
    QSet<QString> m_open;
};

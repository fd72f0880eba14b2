#pragma once

#include <QByteArray>
#include <QCoroTask>
#include <QString>
#include <functional>

/// One attachment as its row needs it.
struct MacAttachmentRow {
    QString filename;
    /// In lower case.
    QString mime;
    /// Bytes; 0 when unknown.
    qint64 size = 0;
    /// Fetches the file, without telling of its progress.
    std::function<QCoro::Task<QByteArray>()> download;
    std::function<void()> open, save;
    /// Tells the person what went wrong.
    std::function<void(const QString &text)> failure;
};

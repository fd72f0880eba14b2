#pragma once

#include "mail/AttachmentFilePromise.h"

#include <QMimeData>
#include <QUrl>

/// What an attachment that is dragged out offers: the address of a local file, which is fetched when the place where it
/// was dropped asks for it. A place that asks while the button is still down only looks, and gets nothing.
class AttachmentDragData final : public QMimeData {
    Q_OBJECT
public:
    explicit AttachmentDragData(std::shared_ptr<AttachmentFilePromise> promise)
        : m_promise(std::move(promise)) {}

    QStringList formats() const override;
    bool hasFormat(const QString &format) const override;

protected:
    QVariant retrieveData(const QString &format, QMetaType type) const override;

private:
    void fetch() const;

    std::shared_ptr<AttachmentFilePromise> m_promise;
    /// Whether the file was asked for before; a failed one is not fetched again.
    mutable bool m_fetched = false;
    mutable QUrl m_url;
};

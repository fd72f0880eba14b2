#pragma once

#include <QMimeData>
#include <QUrl>

/// What an attachment that is dragged out offers: the address of a local file, which is there once it has been dropped.
class AttachmentDragData final : public QMimeData {
    Q_OBJECT
public:
    /// Where the file will be; until this is known the data are empty.
    QUrl url;

    QStringList formats() const override { return {uriList()}; }
    bool hasFormat(const QString &format) const override { return format == uriList(); }

protected:
    QVariant retrieveData(const QString &format, QMetaType) const override {
        return format == uriList() && url.isValid() ? QVariant(QList<QVariant>{url}) : QVariant();
    }

private:
    static QString uriList() { return QStringLiteral("text/uri-list"); }
};

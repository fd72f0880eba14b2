#include "compose/AttachmentFile.h"

#include "mail/AttachmentFileName.h"
#include "platform/FileReading.h"

#include <QFileInfo>
#include <QMimeDatabase>

using namespace Qt::StringLiterals;

namespace {

QString mimeTypeOfExtension(const QString &filename) {
    const auto type =
        QMimeDatabase().mimeTypeForFile(u"attachment."_s + QFileInfo(filename).suffix(), QMimeDatabase::MatchExtension);
    return type.isValid() ? type.name() : u"application/octet-stream"_s;
}

} // namespace

QString attachedFileName(const QUrl &url) {
    return url.adjusted(QUrl::StripTrailingSlash).fileName();
}

ComposeAttachment readAttachmentFile(const QUrl &url) {
    if (!url.isLocalFile())
        throw Error(u"Only files on this computer can be attached."_s);
    const auto bytes = readRegularFile(url.toLocalFile(), attachmentsLimit + 1);
    if (bytes.size() > attachmentsLimit)
        throw Error(u"Attachments must be 25 MB or smaller."_s);
    const auto filename = safeFileName(attachedFileName(url));
    return {.filename = filename, .data = bytes, .contentType = mimeTypeOfExtension(filename)};
}

#include "compose/EditorImageFile.h"

#include <QFile>
#include <QMimeDatabase>

using namespace Qt::StringLiterals;

namespace {

QString imageType(const QString &path) {
    const auto type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension).name();
    return type.startsWith(u"image/"_s) ? type : u"image/png"_s;
}

} // namespace

std::optional<QString> dataURLOfImageFile(const QString &path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    const auto bytes = file.readAll();
    if (file.error() != QFileDevice::NoError)
        return std::nullopt;
    return u"data:"_s + imageType(path) + u";base64,"_s + QString::fromLatin1(bytes.toBase64());
}

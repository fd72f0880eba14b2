#include "compose/EditorImageFile.h"

#include "platform/Error.h"
#include "platform/FileReading.h"

#include <QMimeDatabase>
#include <limits>

using namespace Qt::StringLiterals;

namespace {

QString imageType(const QString &path) {
    const auto type = QMimeDatabase().mimeTypeForFile(path, QMimeDatabase::MatchExtension).name();
    return type.startsWith(u"image/"_s) ? type : u"image/png"_s;
}

} // namespace

std::optional<QString> dataURLOfImageFile(const QString &path) {
    try {
        const auto bytes = readRegularFile(path, std::numeric_limits<qint64>::max());
        return u"data:"_s + imageType(path) + u";base64,"_s + QString::fromLatin1(bytes.toBase64());
    } catch (const Error &) {
        return std::nullopt;
    }
}

#include "platform/FileReading.h"

#include "platform/Error.h"

#include <QFile>
#include <fcntl.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 pieceSize = 1 << 20;

void openRegularFile(QFile &file, const QString &path) {
    // Not blocking, for a pipe without a writer.
    const int descriptor = ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
    struct stat status {};
    if (descriptor < 0 || !file.open(descriptor, QIODevice::ReadOnly | QIODevice::Unbuffered, QFile::AutoCloseHandle) ||
        ::fstat(descriptor, &status) != 0)
        throw Error(qt_error_string());
    if (S_ISDIR(status.st_mode))
        throw Error(qt_error_string(EISDIR));
    if (!S_ISREG(status.st_mode))
        throw Error(u"Not a regular file"_s);
}

} // namespace

QByteArray readRegularFile(const QString &path, qint64 maximum) {
    QFile file;
    openRegularFile(file, path);
    QByteArray bytes;
    bytes.reserve(std::min(file.size(), maximum));
    // To its end or the maximum, whatever length it has by then.
    while (bytes.size() < maximum) {
        const auto piece = file.read(std::min(pieceSize, maximum - bytes.size()));
        if (piece.isEmpty())
            break;
        bytes += piece;
    }
    if (file.error() != QFileDevice::NoError)
        throw Error(file.errorString());
    return bytes;
}

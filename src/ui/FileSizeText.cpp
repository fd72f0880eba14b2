#include "ui/FileSizeText.h"

using namespace Qt::StringLiterals;

QString fileSizeText(qint64 bytes) {
    constexpr qint64 kilobyte = 1024;
    constexpr qint64 megabyte = kilobyte * 1024;
    if (bytes < kilobyte)
        return QString::number(bytes) + u" B"_s;
    if (bytes < megabyte)
        return QString::asprintf("%.1f KB", double(bytes) / kilobyte);
    return QString::asprintf("%.1f MB", double(bytes) / megabyte);
}

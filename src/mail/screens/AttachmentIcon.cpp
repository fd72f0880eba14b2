#include "mail/screens/AttachmentIcon.h"

#include "ui/screens/Symbols.h"

#include <QMimeDatabase>

using namespace Qt::StringLiterals;

namespace {

QString symbolFor(const QString &mime) {
    static const std::pair<QLatin1StringView, QString> symbols[] = {
        {"image/"_L1, u"photo"_s},
        {"audio/"_L1, u"music.note"_s},
        {"video/"_L1, u"film"_s},
        {"text/calendar"_L1, u"calendar"_s},
        {"text/"_L1, u"doc.text"_s},
        {"message/"_L1, u"envelope"_s},
        {"application/pdf"_L1, u"doc.richtext"_s},
        {"application/msword"_L1, u"doc.text"_s},
        {"application/vnd.oasis.opendocument.text"_L1, u"doc.text"_s},
        {"application/vnd.openxmlformats-officedocument.wordprocessingml"_L1, u"doc.text"_s},
        {"application/zip"_L1, u"doc.zipper"_s},
        {"application/gzip"_L1, u"doc.zipper"_s},
        {"application/x-7z-compressed"_L1, u"doc.zipper"_s},
    };
    for (const auto &[start, symbol] : symbols)
        if (mime.startsWith(start))
            return symbol;
    return u"doc"_s;
}

} // namespace

QIcon attachmentIcon(const QString &mime) {
    const auto type = QMimeDatabase().mimeTypeForName(mime);
    for (const auto &name : {type.iconName(), type.genericIconName()})
        if (!name.isEmpty() && QIcon::hasThemeIcon(name))
            return QIcon::fromTheme(name);
    return symbolIcon(symbolFor(mime));
}

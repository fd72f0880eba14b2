#include "mail/AttachmentText.h"

#include <QStringDecoder>

QString attachmentText(const QByteArray &bytes) {
    const auto encoding = QStringConverter::encodingForData(bytes).value_or(QStringConverter::Utf8);
    QStringDecoder decoder(encoding);
    QString text = decoder(bytes);
    if (decoder.hasError() && encoding == QStringConverter::Utf8)
        text = QString::fromLatin1(bytes);
    // Lines may end as on any system.
    return text.replace(QLatin1StringView("\r\n"), QLatin1StringView("\n")).replace(u'\r', u'\n');
}

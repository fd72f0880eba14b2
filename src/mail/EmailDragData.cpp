#include "mail/EmailDragData.h"

#include <QJsonDocument>

QByteArray encodeEmailDrag(const std::vector<EmailDragData> &items) {
    const auto document = items.size() == 1 ? QJsonDocument(encodeJSON(items.front()).toObject())
                                            : QJsonDocument(encodeJSON(items).toArray());
    return document.toJson(QJsonDocument::Compact);
}

std::vector<EmailDragData> decodeEmailDrag(const QByteArray &bytes) {
    const auto document = QJsonDocument::fromJson(bytes);
    try {
        if (document.isArray())
            return decodeJSON<std::vector<EmailDragData>>(document.array());
        return {decodeJSON<EmailDragData>(document.object())};
    } catch (const DecodingError &) {
        return {};
    }
}

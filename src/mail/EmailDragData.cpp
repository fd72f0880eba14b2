#include "mail/EmailDragData.h"

#include "net/JSONText.h"

#include <QJsonDocument>

QByteArray encodeEmailDrag(const std::vector<EmailDragData> &items) {
    return items.size() == 1 ? encodeJSONText(items.front()) : encodeJSONText(items);
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

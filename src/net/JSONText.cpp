#include "net/JSONText.h"

#include <QJsonDocument>

namespace {

/// Bytes; a multiple of 3, so that the pieces of Base64 join without padding.
constexpr qsizetype pieceSize = 48 * 1024;

} // namespace

QByteArray jsonText(const QJsonValue &json) {
    // Only lists and objects are documents.
    const auto list = QJsonDocument(QJsonArray{json}).toJson(QJsonDocument::Compact);
    return list.sliced(1, list.size() - 2);
}

void closeJSON(QByteArray &text, char bracket) {
    if (text.endsWith(','))
        text.chop(1);
    text += bracket;
}

void writeJSON(QByteArray &text, const QJsonObject &object) {
    text += jsonText(object);
}

void writeJSON(QByteArray &text, const QByteArray &bytes) {
    text.reserve(text.size() + bytes.size() / 3 * 4 + 8);
    text += '"';
    for (qsizetype start = 0; start < bytes.size(); start += pieceSize) {
        const auto size = std::min(pieceSize, bytes.size() - start);
        text += QByteArray::fromRawData(bytes.constData() + start, size).toBase64();
    }
    text += '"';
}

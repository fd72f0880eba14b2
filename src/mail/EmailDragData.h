#pragma once

#include "net/JSONRecord.h"

/// A message as it is dragged.
struct EmailDragData {
    qint64 uid = 0;
    /// The real path of its folder.
    QString folder;

    bool operator==(const EmailDragData &) const = default;
};
template <>
inline constexpr auto jsonFields<EmailDragData> = jsonRecord(jsonField("uid", &EmailDragData::uid),
                                                             jsonField("folder", &EmailDragData::folder));

/// The content type of dragged messages.
inline constexpr auto emailDragType = QLatin1StringView("public.json");

/// One message as a JSON object, several as a list of them.
QByteArray encodeEmailDrag(const std::vector<EmailDragData> &items);
/// Empty when the bytes are not dragged messages.
std::vector<EmailDragData> decodeEmailDrag(const QByteArray &bytes);

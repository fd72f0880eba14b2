#pragma once

#include "net/JSONRecord.h"

/// The value that opens a message in a window of its own.
struct EmailWindowRef {
    qint64 uid = 0;
    QString folder;

    bool operator==(const EmailWindowRef &) const = default;
};
template <>
inline constexpr auto jsonFields<EmailWindowRef> =
    jsonRecord(jsonField("uid", &EmailWindowRef::uid), jsonField("folder", &EmailWindowRef::folder));

#pragma once

#include "net/JSONRecord.h"

/// One folder, named by its path as the server gives it.
struct MailFolder {
    QString path, name;
    /// The word of its role; absent counts as "folder".
    std::optional<QString> type;
    std::optional<qint64> total, unseen;

    bool operator==(const MailFolder &) const = default;
};

template <>
inline constexpr auto
    jsonFields<MailFolder> = jsonRecord(jsonField("path", &MailFolder::path), jsonField("name", &MailFolder::name),
                                        jsonField("type", &MailFolder::type), jsonField("total", &MailFolder::total),
                                        jsonField("unseen", &MailFolder::unseen));

struct FolderListResponse {
    std::vector<MailFolder> folders;
};

template <>
inline constexpr auto jsonFields<FolderListResponse> = jsonRecord(jsonField("folders", &FolderListResponse::folders));

#pragma once

#include "net/JSONRecord.h"

/// The path of the folder that serves each role.
struct FolderMapping {
    std::optional<QString> inbox, sent, drafts, trash, spam, archive;

    bool operator==(const FolderMapping &) const = default;
};

template <>
inline constexpr auto jsonFields<FolderMapping> = jsonRecord(jsonField("inbox", &FolderMapping::inbox),
                                                             jsonField("sent", &FolderMapping::sent),
                                                             jsonField("drafts", &FolderMapping::drafts),
                                                             jsonField("trash", &FolderMapping::trash),
                                                             jsonField("spam", &FolderMapping::spam),
                                                             jsonField("archive", &FolderMapping::archive));

/// The signed-in account. Read leniently: whatever kind a field has, the record decodes, so that a changed field on the
/// server locks nobody out. Only the four required fields are ever written.
struct User {
    QString _id, username, email, full_name;
    std::optional<QString> display_name, avatar_color, avatar;
    /// "admin" marks an administrator.
    std::optional<QString> role;
    std::optional<bool> active;
    std::optional<QString> theme;
    /// HTML.
    std::optional<QString> signature;
    std::optional<QString> ai_provider, ai_model;
    std::optional<bool> has_ai_key, has_imap_password, has_smtp_password, has_mail_config;
    /// Whether mail may be sent from other addresses than the account's own.
    std::optional<bool> allow_custom_from;
    std::optional<bool> ollama_local_available;
    std::optional<bool> vacation_enabled;
    std::optional<QString> vacation_subject, vacation_message;
    std::optional<FolderMapping> folder_mapping;
    std::optional<std::vector<QString>> folder_order;
    /// An administrator is signed in as this user.
    std::optional<bool> impersonating;
    std::optional<QString> impersonated_by;
    std::optional<QString> imap_host;
    std::optional<qint64> imap_port;
    std::optional<QString> imap_username, imap_encryption;
    std::optional<QString> smtp_host;
    std::optional<qint64> smtp_port;
    std::optional<QString> smtp_username, smtp_encryption;
    std::optional<bool> ai_auto_spam;
    std::optional<double> ai_auto_spam_threshold;
    std::optional<bool> ai_auto_reply_enabled;
    std::optional<QString> ai_ollama_url;
    std::optional<qint64> emails_per_page;
    std::optional<bool> reply_forward_attachments;

    bool operator==(const User &) const = default;
};

template <> struct JSONCodec<User> {
    static User decode(const QJsonValue &json, const JSONPath &path);
    static QJsonValue encode(const User &user);
};

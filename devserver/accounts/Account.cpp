#include "accounts/Account.h"

namespace {

nlohmann::json defaultSettings() {
    return {
        {"avatar_color", "#2563eb"},
        {"avatar", ""},
        {"active", true},
        {"theme", "light"},
        {"signature", ""},
        {"ai_provider", ""},
        {"ai_model", ""},
        {"has_ai_key", false},
        {"has_imap_password", true},
        {"has_smtp_password", true},
        {"has_mail_config", true},
        {"allow_custom_from", false},
        {"ollama_local_available", false},
        {"vacation_enabled", false},
        {"vacation_subject", ""},
        {"vacation_message", ""},
        {"folder_mapping",
         {{"inbox", "INBOX"},
          {"sent", "Sent"},
          {"drafts", "Drafts"},
          {"trash", "Trash"},
          {"spam", "Junk"},
          {"archive", "Archive"}}},
        {"folder_order", nlohmann::json::array()},
        {"impersonating", false},
        {"imap_host", "127.0.0.1"},
        {"imap_port", 993},
        {"imap_encryption", "ssl"},
        {"smtp_host", "127.0.0.1"},
        {"smtp_port", 587},
        {"smtp_encryption", "tls"},
        {"ai_auto_spam", false},
        {"ai_auto_spam_threshold", 0.8},
        {"ai_auto_reply_enabled", false},
        {"ai_ollama_url", ""},
        {"emails_per_page", 50},
        {"reply_forward_attachments", true},
    };
}

} // namespace

nlohmann::json accountRecord(const Account &account) {
    auto record = defaultSettings();
    record["display_name"] = account.fullName;
    record["imap_username"] = account.email;
    record["smtp_username"] = account.email;
    record.update(account.settings);
    record["_id"] = account.id;
    record["username"] = account.username;
    record["email"] = account.email;
    record["full_name"] = account.fullName;
    record["role"] = account.isAdministrator ? "admin" : "user";
    return record;
}

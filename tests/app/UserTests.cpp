#include "app/AuthRecords.h"

#include "net/JSONText.h"
#include "support/CoreTest.h"

using namespace Qt::StringLiterals;

namespace {

struct UserRow {
    const char *name;
    QByteArray json;
    User expected;
};

class UserDecoding : public testing::TestWithParam<UserRow> {};

User integer(std::optional<qint64> port) {
    return {.imap_port = port};
}

User threshold(std::optional<double> value) {
    return {.ai_auto_spam_threshold = value};
}

const UserRow rows[] = {
    {"EmptyObject", "{}", {}},
    {"RequiredTextsOfOtherKinds",
     R"({"_id": 7, "username": true, "email": null, "full_name": 5})",
     {._id = u"7.0"_s, .username = u"true"_s, .full_name = u"5.0"_s}},
    {"EmptyTextIsAbsent", R"({"display_name": "", "theme": []})", {}},
    {"TextFromNumbers",
     R"({"avatar": 143, "role": 0.5, "theme": -2, "signature": 12345678901})",
     {.avatar = u"143.0"_s, .role = u"0.5"_s, .theme = u"-2.0"_s, .signature = u"12345678901.0"_s}},
    {"Flags",
     R"({"active": "yes", "has_ai_key": 1, "has_imap_password": 0, "has_smtp_password": "true",
         "has_mail_config": true, "allow_custom_from": null, "vacation_enabled": "TRUE", "impersonating": {}})",
     {.active = false,
      .has_ai_key = true,
      .has_imap_password = false,
      .has_smtp_password = true,
      .has_mail_config = true,
      .vacation_enabled = false}},
    {"IntegerText", R"({"imap_port": "993"})", integer(993)},
    {"IntegerSignedTexts", R"({"imap_port": "+993", "smtp_port": "-1"})", {.imap_port = 993, .smtp_port = -1}},
    {"IntegerNumber", R"({"imap_port": 993.0})", integer(993)},
    {"IntegerTruncates", R"({"imap_port": -2.9})", integer(-2)},
    {"IntegerTextWithBlank", R"({"imap_port": "993 "})", integer({})},
    {"IntegerTextWithNewline", R"({"imap_port": "993\n"})", integer({})},
    {"IntegerTextWithFraction", R"({"imap_port": "993.0"})", integer({})},
    {"IntegerTextOfOtherDigits", R"({"imap_port": "\u0663"})", integer({})},
    {"IntegerTooLarge", R"({"imap_port": 1e19, "smtp_port": "9223372036854775808"})", integer({})},
    {"IntegerFlag", R"({"emails_per_page": true})", {}},
    {"FloatText", R"({"ai_auto_spam_threshold": "0.75"})", threshold(0.75)},
    {"FloatExponent", R"({"ai_auto_spam_threshold": "+75e-2"})", threshold(0.75)},
    {"FloatNumber", R"({"ai_auto_spam_threshold": 1})", threshold(1)},
    {"FloatLeadingBlank", R"({"ai_auto_spam_threshold": " 0.75"})", threshold({})},
    {"FloatTrailingText", R"({"ai_auto_spam_threshold": "0.75%"})", threshold({})},
    {"FloatFlag", R"({"ai_auto_spam_threshold": false})", threshold({})},
    {"FolderOrder",
     R"({"folder_order": ["INBOX", "", 7, null, false]})",
     {.folder_order = std::vector{u"INBOX"_s, u"7.0"_s, u"false"_s}}},
    {"FolderOrderOfEmptyTexts", R"({"folder_order": ["", ""]})", {.folder_order = std::vector<QString>()}},
    {"FolderOrderNoList", R"({"folder_order": "INBOX"})", {}},
    {"FolderMapping",
     R"({"folder_mapping": {"inbox": "INBOX", "sent": 5, "trash": "", "spam": [], "other": "x"}})",
     {.folder_mapping = FolderMapping{.inbox = u"INBOX"_s, .sent = u"5.0"_s}}},
    {"FolderMappingText", R"({"folder_mapping": "INBOX", "username": "ada"})", {.username = u"ada"_s}},
};

} // namespace

TEST_P(UserDecoding, TakesEveryKind) {
    EXPECT_EQ(decodeJSONText<User>(GetParam().json), GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(, UserDecoding, testing::ValuesIn(rows), rowName);

TEST(User, ReadsEveryKeyIntoItsField) {
    const auto user = decodeJSONText<User>(R"({
        "_id": "u1", "username": "ada", "email": "ada@example.org", "full_name": "Ada L", "display_name": "Ada",
        "avatar_color": "#fff", "avatar": "data:", "role": "admin", "active": true, "theme": "space",
        "signature": "<b>A</b>", "ai_provider": "ollama", "ai_model": "m", "has_ai_key": true,
        "has_imap_password": true, "has_smtp_password": true, "has_mail_config": true, "allow_custom_from": true,
        "ollama_local_available": true, "vacation_enabled": true, "vacation_subject": "away", "vacation_message": "soon",
        "folder_mapping": {"inbox": "I", "sent": "S", "drafts": "D", "trash": "T", "spam": "J", "archive": "A"},
        "folder_order": ["I"], "impersonating": true, "impersonated_by": "root", "imap_host": "ih", "imap_port": 1,
        "imap_username": "iu", "imap_encryption": "ssl", "smtp_host": "sh", "smtp_port": 2, "smtp_username": "su",
        "smtp_encryption": "tls", "ai_auto_spam": true, "ai_auto_spam_threshold": 0.5, "ai_auto_reply_enabled": true,
        "ai_ollama_url": "http://o", "emails_per_page": 25, "reply_forward_attachments": true})");
    const User expected{u"u1"_s,
                        u"ada"_s,
                        u"ada@example.org"_s,
                        u"Ada L"_s,
                        u"Ada"_s,
                        u"#fff"_s,
                        u"data:"_s,
                        u"admin"_s,
                        true,
                        u"space"_s,
                        u"<b>A</b>"_s,
                        u"ollama"_s,
                        u"m"_s,
                        true,
                        true,
                        true,
                        true,
                        true,
                        true,
                        true,
                        u"away"_s,
                        u"soon"_s,
                        FolderMapping{u"I"_s, u"S"_s, u"D"_s, u"T"_s, u"J"_s, u"A"_s},
                        std::vector{u"I"_s},
                        true,
                        u"root"_s,
                        u"ih"_s,
                        1,
                        u"iu"_s,
                        u"ssl"_s,
                        u"sh"_s,
                        2,
                        u"su"_s,
                        u"tls"_s,
                        true,
                        0.5,
                        true,
                        u"http://o"_s,
                        25,
                        true};
    EXPECT_EQ(user, expected);
}

TEST(User, FailsOnlyWhenItIsNoObject) {
    try {
        decodeJSONText<AuthMeResponse>(R"({"user": ["x"]})");
        FAIL() << "a list was taken for a user";
    } catch (const DecodingError &error) {
        EXPECT_EQ(error.description(), u"Expected object"_s);
    }
}

TEST(User, WritesOnlyWhatIdentifiesIt) {
    const User user{._id = u"1"_s, .username = u"ada"_s, .email = u"a@b"_s, .theme = u"space"_s};
    const QJsonObject expected{
        {u"_id"_s, u"1"_s}, {u"username"_s, u"ada"_s}, {u"email"_s, u"a@b"_s}, {u"full_name"_s, QString()}};
    EXPECT_EQ(encodeJSON(user), QJsonValue(expected));
}

TEST(FolderMapping, IsStrictOnItsOwn) {
    EXPECT_THROW(decodeJSONText<FolderMapping>(R"({"inbox": 5})"), DecodingError);
    EXPECT_EQ(decodeJSONText<FolderMapping>(R"({"spam": "Junk", "inbox": null})"), FolderMapping{.spam = u"Junk"_s});
}

TEST(RegisterRequest, LeavesOutWhatIsUnset) {
    const RegisterRequest request{
        .username = u"ada"_s, .password = u"p"_s, .email = u"a@b"_s, .imap_port = 993, .smtp_host = u"s"_s};
    EXPECT_EQ(encodeJSONText(request), R"({"username":"ada","password":"p","email":"a@b","full_name":"",)"
                                       R"("imap_port":993,"smtp_host":"s"})");
}

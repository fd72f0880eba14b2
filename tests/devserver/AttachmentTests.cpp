#include "ServerTest.h"

#include "fill/FillMaildir.h"

#include <archive.h>
#include <archive_entry.h>

#include <clocale>

namespace {

class AttachmentTest : public ServerTest {
protected:
    void deliverFiles(const std::vector<std::pair<std::string, std::string>> &dispositionsAndContents) {
        std::string message = "Content-Type: multipart/mixed; boundary=b\n\n--b\n\nText\n";
        for (const auto &[disposition, content] : dispositionsAndContents)
            message += "--b\nContent-Type: application/octet-stream\nContent-Disposition: attachment; " + disposition +
                       "\n\n" + content + "\n";
        deliver("1.a", message + "--b--\n");
        start();
        signIn();
    }
};

using Files = std::vector<std::pair<std::string, std::string>>;

Files unzip(const std::string &bytes) {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    Files files;
    archive *reader = archive_read_new();
    archive_read_support_format_zip(reader);
    archive_read_open_memory(reader, bytes.data(), bytes.size());
    for (archive_entry *entry = nullptr; archive_read_next_header(reader, &entry) == ARCHIVE_OK;) {
        std::string content(100, '\0');
        content.resize(static_cast<std::size_t>(archive_read_data(reader, content.data(), content.size())));
        const char *name = archive_entry_pathname_utf8(entry);
        files.emplace_back(name ? name : archive_entry_pathname(entry), content);
    }
    archive_read_free(reader);
    return files;
}

TEST_F(AttachmentTest, PartsAreServedByTheirDottedNumbers) {
    deliver("1.a", "Content-Type: multipart/mixed; boundary=o\n\n--o\nContent-Type: multipart/mixed; boundary=i\n\n"
                   "--i\n\nText\n--i\nContent-Type: application/pdf; name=a.pdf\nContent-Transfer-Encoding: base64\n\n"
                   "AAECAw==\n--i--\n--o\nContent-Type: message/rfc822\n\nSubject: Inner\n\nBody\n--o--\n");
    start();
    signIn();
    EXPECT_EQ(getJSON("api/emails/read/1?folder=INBOX").at("attachments"), nlohmann::json::parse(R"([
        {"filename":"a.pdf","contentType":"application/pdf","size":4,"partNum":"1.2","part":2},
        {"filename":"Inner.eml","contentType":"message/rfc822","size":20,"partNum":"2","part":3}])"));
    const auto pdf = get("api/emails/attachment?uid=1&folder=INBOX&part=1.2&filename=a.pdf");
    EXPECT_EQ(pdf->body, std::string("\0\1\2\3", 4));
    EXPECT_EQ(pdf->get_header_value("Content-Type"), "application/pdf");
    EXPECT_EQ(pdf->get_header_value("Content-Length"), "4");
    EXPECT_EQ(get("api/emails/attachment?uid=1&folder=INBOX&part=2&filename=x")->body, "Subject: Inner\n\nBody");
    EXPECT_EQ(get("api/emails/attachment?uid=1&folder=INBOX&part=9&filename=x")->status, 404);
    EXPECT_EQ(get("api/emails/attachment?uid=7&folder=INBOX&part=1&filename=x")->status, 404);
}

TEST_F(AttachmentTest, FileNamesCannotForgeHeadersOrPaths) {
    deliverFiles({{R"(filename*=utf-8''a%0D%0AX-Forged%3A%20yes%22.txt)", "1"},
                  {R"(filename="../../etc/passwd")", "2"},
                  {R"(filename="C:\\dir\\evil.exe")", "3"},
                  {R"(filename*=utf-8''caf%C3%A9.txt)", "4"}});
    const auto attachments = getJSON("api/emails/read/1?folder=INBOX").at("attachments");
    ASSERT_EQ(attachments.size(), 4U);
    EXPECT_EQ(attachments[0].at("filename"), "a X-Forged: yes\".txt");
    EXPECT_EQ(attachments[1].at("filename"), "passwd");
    EXPECT_EQ(attachments[2].at("filename"), "evil.exe");
    const auto forged = get("api/emails/attachment?uid=1&folder=INBOX&part=2&filename=x");
    EXPECT_FALSE(forged->has_header("X-Forged"));
    // The client undoes the percent-encoding of the second form.
    EXPECT_EQ(forged->get_header_value("Content-Disposition"),
              "attachment; filename=\"a X-Forged: yes_.txt\"; filename*=UTF-8''a X-Forged: yes\".txt");
    EXPECT_EQ(get("api/emails/attachment?uid=1&folder=INBOX&part=5&filename=x")->body, "4");
}

TEST_F(AttachmentTest, TheArchiveHoldsEveryFileUnderANameOfItsOwn) {
    deliverFiles({{"filename=a.txt", "1"},
                  {"filename=a.txt", "2"},
                  {R"(filename="../up.txt")", "3"},
                  {"filename*=utf-8''caf%C3%A9.txt", "4"},
                  {"size=1", "5"}});
    const auto answer = get("api/emails/attachments/zip?uid=1&folder=INBOX&name=attachments_1");
    EXPECT_EQ(answer->get_header_value("Content-Type"), "application/zip");
    EXPECT_EQ(answer->get_header_value("Content-Length"), std::to_string(answer->body.size()));
    EXPECT_EQ(answer->get_header_value("Content-Disposition").substr(0, 43),
              "attachment; filename=\"attachments_1.zip\"; f");
    EXPECT_EQ(unzip(answer->body),
              (Files{{"a.txt", "1"}, {"a 2.txt", "2"}, {"up.txt", "3"}, {"café.txt", "4"}, {"attachment", "5"}}));
}

TEST_F(AttachmentTest, AFilledMaildirCanHoldALargeFile) {
    fillMaildir({3, m_folder.path() / "filled", 2}, std::chrono::system_clock::now());
    start({"--maildir", m_folder.path() / "filled"});
    signIn();
    const auto newest = getJSON("api/emails/list?folder=INBOX").at("emails").at(0).at("uid").dump();
    const auto file = getJSON("api/emails/read/" + newest + "?folder=INBOX").at("attachments").at(0);
    EXPECT_EQ(file.at("size"), 2 << 20);
    const auto answer = get("api/emails/attachment?uid=" + newest + "&folder=INBOX&part=2&filename=x");
    EXPECT_EQ(answer->get_header_value("Content-Length"), "2097152");
    EXPECT_EQ(answer->body.size(), 2U << 20);
}

} // namespace

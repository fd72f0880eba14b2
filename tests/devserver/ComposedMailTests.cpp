#include "SendServerTest.h"

#include "accounts/Secrets.h"

#include <numeric>

namespace {

using nlohmann::json;

class ComposedMailTest : public SendServerTest {
protected:
    ComposedMailTest() {
        start();
        signIn();
    }

    /// What another parser reads in the delivered message, after what must hold for any message.
    json received(const json &request) {
        sendWell(request);
        auto message = parsed(delivered());
        EXPECT_EQ(message.at("defects"), json::array());
        EXPECT_EQ(message.at("has_bare_line_ends"), false);
        EXPECT_EQ(message.at("is_seven_bit"), true);
        EXPECT_EQ(message.at("has_date"), true);
        EXPECT_LE(message.at("longest_line"), 78);
        return message;
    }

    static json part(const json &message, const std::string &type) {
        for (const auto &part : message.at("parts")) {
            if (part.at("type") == type)
                return part;
        }
        return {};
    }
};

std::string allBytes(int rounds) {
    std::string bytes(256, '\0');
    std::iota(bytes.begin(), bytes.end(), '\0');
    std::string repeated;
    for (int i = 0; i < rounds; ++i)
        repeated += bytes;
    return repeated;
}

json file(const std::string &name, const std::string &type, const std::string &data) {
    return {{"name", name}, {"type", type}, {"data", data}};
}

json typesOf(const json &message) {
    auto types = json::array();
    for (const auto &part : message.at("parts"))
        types.push_back(part.at("type"));
    return types;
}

} // namespace

TEST_F(ComposedMailTest, AnotherParserReadsNamesSubjectTextsImagesAndFiles) {
    const auto image = base64(allBytes(3)), otherImage = base64("GIF89a");
    const std::string subject =
        "Überraschung für Łukasz ✉️ und 日本語の件名がとても長い場合でも読めること, then "
        "plain words";
    auto request = mail();
    request["to"] =
        R"("Brandt, Ilias" <ilias@corvanite.example>, Zoë Müller-Lüdenscheidt <d.okafor@corvanite.example>)";
    request["cc"] = "tides@corvanite.example";
    request["reply_to"] = "Answers <tides@corvanite.example>";
    request["subject"] = subject;
    request["body"] = "<p>Grüße &amp; <b>more</b></p><img src=\"data:image/png;base64," + image +
                      "\"><IMG SRC='data:image/png;base64," + image +
                      "'><p style=\"background:url(data:image/gif;base64," + otherImage + ")\">End</p>";
    request["attachments"] = {file("Größe, Länge und Übersicht – ein sehr langer Name für eine Datei 2026.pdf",
                                   "application/pdf", base64(allBytes(50))),
                              file("empty.txt", "text/plain", ""), file("page.html", "text/html", base64("<p>\xFF"))};
    const auto message = received(request);
    EXPECT_EQ(message.at("subject"), subject);
    EXPECT_EQ(message.at("from"), people({{"Dana Okafor", "dana@corvanite.example"}}));
    EXPECT_EQ(message.at("to"), people({{"Brandt, Ilias", "ilias@corvanite.example"},
                                        {"Zoë Müller-Lüdenscheidt", "d.okafor@corvanite.example"}}));
    EXPECT_EQ(message.at("cc"), people({{"", "tides@corvanite.example"}}));
    EXPECT_EQ(message.at("reply_to"), people({{"Answers", "tides@corvanite.example"}}));
    EXPECT_EQ(typesOf(message),
              (json{"multipart/mixed", "multipart/alternative", "text/plain", "multipart/related", "text/html",
                    "image/png", "image/gif", "application/pdf", "text/plain", "text/html"}));
    const auto &parts = message.at("parts");
    EXPECT_EQ(parts[2].at("text"), "Grüße & more\r\n\r\nEnd\r\n");
    const auto png = parts[5].at("cid").get<std::string>(), gif = parts[6].at("cid").get<std::string>();
    const auto pngLink = "cid:" + png.substr(1, png.size() - 2), gifLink = "cid:" + gif.substr(1, gif.size() - 2);
    EXPECT_EQ(parts[4].at("text"), "<p>Grüße &amp; <b>more</b></p><img src=\"" + pngLink + "\"><IMG SRC='" + pngLink +
                                       "'><p style=\"background:url(" + gifLink + ")\">End</p>");
    EXPECT_EQ(parts[5].at("disposition"), "inline");
    EXPECT_EQ(parts[5].at("sha256"), sha256Hex(allBytes(3)));
    EXPECT_EQ(parts[6].at("sha256"), sha256Hex("GIF89a"));
    EXPECT_EQ(parts[7].at("filename"), "Größe, Länge und Übersicht – ein sehr langer Name für eine Datei 2026.pdf");
    EXPECT_EQ(parts[7].at("disposition"), "attachment");
    EXPECT_EQ(parts[7].at("sha256"), sha256Hex(allBytes(50)));
    EXPECT_EQ(parts[8].at("size"), 0);
    EXPECT_EQ(parts[9].at("sha256"), sha256Hex("<p>\xFF"));
}

TEST_F(ComposedMailTest, TheReceiverSeesTheImageInTheTextAndTheSameFile) {
    auto request = mail();
    request["body"] = "<img src=\"data:image/png;base64,QUJD\">";
    request["attachments"] = {file("a.bin", "application/x-thing", base64(allBytes(1)))};
    sendWell(request);
    signIn("ilias");
    const auto email = getJSON("api/emails/read/1?folder=INBOX");
    EXPECT_EQ(email.at("body_html"), "<img src=\"data:image/png;base64,QUJD\">");
    EXPECT_EQ(email.at("attachments").at(1).at("filename"), "a.bin");
    const auto number = email.at("attachments").at(1).at("partNum").get<std::string>();
    EXPECT_EQ(get("api/emails/attachment?uid=1&folder=INBOX&filename=x&part=" + number)->body, allBytes(1));
}

TEST_F(ComposedMailTest, AwkwardTextArrivesAsItWasWritten) {
    const std::string awkward = std::string("<p>\\ \" ' \xE2\x80\xA8 \xE2\x80\xA9 \xF0\x9F\x8E\x89 a=3D") + '\0' +
                                " \t</p>\r\n.\r\n..\r\nFrom here\r\n--x\r\n" + std::string(1 << 20, 'x') + " \r\n";
    auto request = mail();
    request["body"] = awkward;
    const auto text = part(received(request), "text/html").at("text").get<std::string>();
    EXPECT_TRUE(text == awkward) << text.substr(0, 200);
}

TEST_F(ComposedMailTest, NothingThatIsTypedBecomesAHeader) {
    auto request = mail();
    request["subject"] = "a\r\nBcc: evil@b.example\n\nBody\x01";
    request["to"] = "\"x\r\nBcc: evil@b.example\" <ilias@corvanite.example>";
    request["from_display_name"] = "Dana\r\nX-Forged: yes";
    request["attachments"] = {file("a\r\nX-Forged: yes\".txt", "text/plain\r\nX-Forged: yes", "")};
    const auto message = received(request);
    EXPECT_EQ(message.at("headers"),
              (json{"Date", "Message-ID", "From", "To", "Subject", "MIME-Version", "Content-Type"}));
    EXPECT_EQ(message.at("subject"), "a Bcc: evil@b.example Body");
    EXPECT_EQ(message.at("from").at(0).at(0), "Dana X-Forged: yes");
    EXPECT_EQ(message.at("to").at(0).at(1), "ilias@corvanite.example");
    EXPECT_EQ(message.at("parts").back().at("filename"), "a X-Forged: yes\".txt");
    EXPECT_EQ(message.at("parts").back().at("type"), "application/octet-stream");
}

TEST_F(ComposedMailTest, LongWordsAndManyRecipientsKeepLinesLegal) {
    auto request = mail();
    const auto subject = std::string(1500, 's');
    std::string to = "ilias@corvanite.example";
    for (int i = 0; i < 60; ++i)
        to += ", Person " + std::to_string(i) + " <tides@corvanite.example>";
    request["subject"] = subject;
    request["to"] = to;
    request["attachments"] = {file(std::string(200, 'n') + ".txt", "text/plain", "")};
    const auto message = received(request);
    EXPECT_EQ(message.at("subject"), subject);
    EXPECT_EQ(message.at("to").size(), 61U);
    EXPECT_EQ(message.at("parts").back().at("filename"), std::string(200, 'n') + ".txt");
}

TEST_F(ComposedMailTest, AttachedMessagesKeepTheirBytes) {
    const std::string inner = "Subject: Inner\nContent-Type: text/plain; charset=utf-8\n\nGr\xC3\xBC\xC3\x9F\n";
    auto request = mail();
    request["attachments"] = {file("inner.eml", "message/rfc822", base64(inner))};
    const auto attached = received(request).at("parts").back();
    EXPECT_EQ(attached.at("type"), "application/octet-stream");
    EXPECT_EQ(attached.at("filename"), "inner.eml");
    EXPECT_EQ(attached.at("sha256"), sha256Hex(inner));
}

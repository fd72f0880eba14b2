#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <map>
#include <nlohmann/json.hpp>
#include <regex>
#include <set>
#include <stdexcept>
#include <unistd.h>

#include "demo/DemoMailbox.h"
#include "demo/files/SamplePictures.h"
#include "mime/HeaderEncoding.h"

namespace {
namespace fs = std::filesystem;
using nlohmann::json;

constexpr std::chrono::sys_seconds now{std::chrono::seconds(1792325400)};

// Reads every message with an independent parser and tells what it saw, one object a message.
constexpr const char *reader = R"python(
import base64, email, email.policy, email.utils, json, os, sys
root, out = sys.argv[1], []
for path, _, names in os.walk(root):
    if os.path.basename(path) not in ('cur', 'new'):
        continue
    for name in names:
        with open(os.path.join(path, name), 'rb') as file:
            m = email.message_from_binary_file(file, policy=email.policy.default)
        defects = [str(d) for p in m.walk() for d in p.defects]
        defects += [str(d) for f in ('From', 'To', 'Cc', 'Subject', 'Date') if m[f] is not None for d in m[f].defects]
        texts, files = [], []
        for p in m.walk():
            if p.get_filename() is not None and p.get_content_type() != 'message/rfc822':
                files.append({'name': p.get_filename(), 'start': p.get_payload(decode=True)[:8].hex(),
                              'size': len(p.get_payload(decode=True)), 'id': p.get('Content-ID', '')})
            elif p.get_content_maintype() == 'text':
                try:
                    texts.append(p.get_content()[:4000])
                except LookupError as error:
                    defects.append(str(error))
        date = email.utils.parsedate_to_datetime(m['Date']).timestamp() if m['Date'] and not defects else 0
        out.append({'folder': os.path.relpath(os.path.dirname(path), root), 'file': name, 'defects': defects,
                    'case': m.get('X-Demo-Case', ''), 'from': m.get('From', ''), 'subject': m.get('Subject', ''),
                    'id': m.get('Message-ID', ''), 'parent': m.get('In-Reply-To', ''), 'type': m.get_content_type(),
                    'date': date, 'texts': texts, 'files': files})
json.dump(out, sys.stdout)
)python";

std::string outputOf(const std::string &command) {
    const std::unique_ptr<FILE, int (*)(FILE *)> pipe(popen(command.c_str(), "r"), pclose);
    std::string out;
    std::array<char, 65536> block{};
    while (const size_t count = std::fread(block.data(), 1, block.size(), pipe.get()))
        out.append(block.data(), count);
    return out;
}

std::string bytesOf(const fs::path &path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

bool isMessage(const fs::directory_entry &entry) {
    const fs::path directory = entry.path().parent_path().filename();
    return entry.is_regular_file() && (directory == "cur" || directory == "new");
}

/// The tree is made and parsed once for all tests.
class DemoMailboxTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        s_root = fs::temp_directory_path() / ("demo-mailbox-" + std::to_string(getpid()));
        generateDemoMailbox(s_root / "mail", now);
        std::ofstream(s_root / "reader.py") << reader;
        const std::string script = (s_root / "reader.py").string(), mail = (s_root / "mail").string();
        s_messages = json::parse(outputOf("python3 '" + script + "' '" + mail + "'"));
    }
    static void TearDownTestSuite() { fs::remove_all(s_root); }

    static json messageWithSubject(const std::string &subject) {
        for (const json &message : s_messages)
            if (message["subject"] == subject)
                return message;
        throw std::runtime_error("no message with the subject " + subject);
    }

    static json messageOfCase(const std::string &name) {
        for (const json &message : s_messages)
            if (message["case"] == name)
                return message;
        throw std::runtime_error("no message of the case " + name);
    }

    static std::string rawMessage(const json &message) {
        const fs::path folder = s_root / "mail" / message["folder"].get<std::string>();
        const fs::path path = folder / "cur" / message["file"].get<std::string>();
        return bytesOf(fs::exists(path) ? path : folder / "new" / message["file"].get<std::string>());
    }

    static inline fs::path s_root;
    static inline json s_messages;
};

TEST_F(DemoMailboxTest, FoldersHoldWhatTheyShould) {
    std::map<std::string, int> counts;
    for (const json &message : s_messages)
        ++counts[message["folder"]];
    EXPECT_GT(counts["."], 150) << "the inbox must fill four pages of fifty";
    EXPECT_LE(counts["."], 200);
    EXPECT_EQ(counts[".Drafts"], 2);
    EXPECT_EQ(counts[".Junk"], 12);
    EXPECT_EQ(counts[".Travel"], 0);
    EXPECT_GE(counts[".Sent"], 30);
    for (const char *folder : {".Trash", ".Archive", ".Projects", ".Projects.Harbour", ".Receipts", ".Newsletters",
                               ".K&APw-ste &- H&AOQ-fen"})
        EXPECT_GE(counts[folder], 5) << folder;
}

TEST_F(DemoMailboxTest, InboxHasUnreadFlaggedAndAnsweredMail) {
    std::map<char, int> flags;
    int unread = 0;
    for (const json &message : s_messages) {
        if (message["folder"] != ".")
            continue;
        const std::string file = message["file"],
                          info = file.find(':') == file.npos ? "" : file.substr(file.find(":2,") + 3);
        for (const char flag : info)
            ++flags[flag];
        unread += info.find('S') == info.npos;
    }
    EXPECT_EQ(unread, 14);
    EXPECT_GE(flags['F'], 4);
    EXPECT_GE(flags['R'], 10);
}

TEST_F(DemoMailboxTest, FileNamesAreThoseOfAMaildir) {
    const std::regex read(R"(\d+\.M\d+P\d+\.[a-z.]+,S=(\d+):2,D?F?P?R?S?T?)"),
        unread(R"(\d+\.M\d+P\d+\.[a-z.]+,S=(\d+))");
    std::set<std::string> unique;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(s_root / "mail")) {
        if (!isMessage(entry))
            continue;
        const std::string name = entry.path().filename();
        std::smatch match;
        const bool isNew = entry.path().parent_path().filename() == "new";
        ASSERT_TRUE(std::regex_match(name, match, isNew ? unread : read)) << entry.path();
        EXPECT_EQ(std::stoull(match[1]), entry.file_size()) << entry.path();
        EXPECT_TRUE(unique.insert(name.substr(0, name.find(','))).second) << name;
    }
    EXPECT_EQ(unique.size(), s_messages.size());
}

TEST_F(DemoMailboxTest, FilesAndDatesAreNotInTheFuture) {
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(s_root / "mail"))
        if (isMessage(entry)) {
            EXPECT_LE(std::chrono::file_clock::to_sys(entry.last_write_time()), now) << entry.path();
            EXPECT_GT(std::chrono::file_clock::to_sys(entry.last_write_time()), now - std::chrono::days(500));
        }
    for (const json &message : s_messages)
        EXPECT_LE(message["date"].get<double>(), static_cast<double>(now.time_since_epoch().count()))
            << message["subject"];
}

TEST_F(DemoMailboxTest, TheSameMomentGivesTheSameTree) {
    generateDemoMailbox(s_root / "again", now);
    size_t compared = 0;
    for (const fs::directory_entry &entry : fs::recursive_directory_iterator(s_root / "mail")) {
        if (!isMessage(entry))
            continue;
        const fs::path other = s_root / "again" / fs::relative(entry.path(), s_root / "mail");
        ASSERT_TRUE(fs::exists(other)) << other;
        EXPECT_EQ(bytesOf(entry.path()), bytesOf(other));
        ++compared;
    }
    EXPECT_EQ(compared, s_messages.size());
}

TEST_F(DemoMailboxTest, MessagesThatAreNotBrokenOnPurposeParseWithoutDefects) {
    int headless = 0;
    for (const json &message : s_messages) {
        if (!message["case"].get<std::string>().empty())
            continue;
        const bool noHeaders = message["from"] == "" && message["subject"] == "";
        headless += noHeaders;
        if (noHeaders)
            continue;
        EXPECT_TRUE(message["defects"].empty()) << message["subject"] << message["defects"];
        EXPECT_FALSE(message["texts"].empty()) << message["subject"];
        EXPECT_NE(message["id"], "") << message["subject"];
    }
    EXPECT_EQ(headless, 2);
}

TEST_F(DemoMailboxTest, MessageIdentifiersAreUniqueAndRepliesNameAMessageThatExists) {
    std::set<std::string> ids;
    for (const json &message : s_messages)
        if (message["id"] != "") {
            EXPECT_TRUE(ids.insert(message["id"]).second) << message["subject"];
        }
    int replies = 0;
    for (const json &message : s_messages)
        if (message["parent"] != "") {
            EXPECT_TRUE(ids.contains(message["parent"])) << message["subject"];
            ++replies;
        }
    EXPECT_GE(replies, 50);
}

struct WrittenLetter {
    const char *charset, *from, *subject, *text;
};

TEST_F(DemoMailboxTest, LettersInEveryCharacterSetComeBackAsWritten) {
    const WrittenLetter letters[] = {
        {"iso-8859-1", "Jürgen Großmann", "Rückfrage zu den Pegelständen", "dass die Sommerzeit zu früh endete?"},
        {"iso-8859-15", "Hélène Marchetti", "Réunion de chantier : le brise-lames", "12 400 €"},
        {"iso-8859-2", "Żaneta Jabłońska", "Zdjęcia latarni: już gotowe", "Najładniejsze zrobiliśmy o świcie"},
        {"iso-8859-7", "Ελένη Παπαδάκη", "Η στάθμη της θάλασσας στο λιμάνι", "Αγαπητή Ντάνα,"},
        {"koi8-r", "Вера Соловьёва", "Таблицы приливов за прошлый год", "Спасибо за открытые данные."},
        {"windows-1251", "Борис Ладогин", "Счёт за ремонт лебёдки", "Лебёдка готова"},
        {"utf-8", "ليلى منصور", "موعد زيارة الميناء يوم الخميس", "(الطراز TG-200)"},
        {"windows-1255", "נועם ברקאי", "שאלה על נתוני הגאות", "לכיתה ו׳"},
        {"gb18030", "林晓梅", "关于潮位数据接口的问题", "正在为港口的小学生制作"},
        {"iso-2022-jp", "高橋美咲", "検潮所の見学について", "十五日の午前中"},
        {"euc-kr", "한지우", "방파제 사진 보내드립니다", "등대까지 잘 보였습니다."},
        {"utf-8", "Kelechi Okafor", "🎺🚢 rehearsal footage 😂", "🙉 He has now asked"},
    };
    for (const WrittenLetter &letter : letters) {
        SCOPED_TRACE(letter.subject);
        const json message = messageWithSubject(letter.subject);
        EXPECT_TRUE(message["from"].get<std::string>().starts_with(letter.from)) << message["from"];
        EXPECT_NE(message["texts"][0].get<std::string>().find(letter.text), std::string::npos) << message["texts"][0];
        EXPECT_NE(rawMessage(message).find("charset=" + std::string(letter.charset)), std::string::npos);
    }
}

struct AttachedFile {
    const char *subject, *name, *firstBytes;
};

TEST_F(DemoMailboxTest, AttachmentsKeepTheirNamesAndAreFilesOfTheirKind) {
    const AttachedFile expected[] = {
        {"Inspection report Berth 4, with photographs", "Inspection Berth 4.pdf", "255044462d312e34"},
        {"Inspection report Berth 4, with photographs", "panel-12.jpg", "ffd8ffe0"},
        {"Inspection report Berth 4, with photographs", "drawings.zip", "504b0304"},
        {"Holiday form", "Holiday form.docx", "504b0304"},
        {"Your father sings", "kitchen.wav", "52494646"},
        {"Flags for the cutter", "flag.gif", "474946383961"},
        {"Photographs from Saturday 🌅", "sunset.png", "89504e470d0a1a0a"},
        {"Übersicht der Pegel", "Übersicht Pegelstände – März & April 潮位.csv", "73746174696f6e2c"},
        {"Übersicht der Pegel", "Größe.txt", "5468652066696c65"},
        {"Invitation: Walk along Berth 4", "invite.ics", "424547494e3a5643"},
    };
    for (const AttachedFile &file : expected) {
        SCOPED_TRACE(file.name);
        const json message = messageWithSubject(file.subject);
        const auto found =
            std::ranges::find_if(message["files"], [&](const json &f) { return f["name"] == file.name; });
        ASSERT_NE(found, message["files"].end()) << message["files"];
        EXPECT_TRUE((*found)["start"].get<std::string>().starts_with(file.firstBytes)) << (*found)["start"];
    }
}

TEST_F(DemoMailboxTest, AttachedBytesAreThoseOfTheFile) {
    const json message = messageWithSubject("Flags for the cutter");
    EXPECT_EQ(message["files"][0]["size"], SamplePictures::flagGIF().size());
}

TEST_F(DemoMailboxTest, HtmlNamesItsInlinePictures) {
    for (const json &message :
         {messageWithSubject("Photographs from Saturday 🌅"), messageWithSubject("Tide report: Merrow outer mole")})
        for (const json &file : message["files"]) {
            const std::string id = file["id"];
            if (id.empty())
                continue;
            const std::string reference = "cid:" + id.substr(1, id.size() - 2) + "\"";
            EXPECT_TRUE(std::ranges::any_of(message["texts"], [&](const json &text) {
                return text.get<std::string>().find(reference) != std::string::npos;
            })) << reference;
        }
}

TEST_F(DemoMailboxTest, MachineMailHasItsOwnTypes) {
    EXPECT_EQ(messageWithSubject("Undelivered mail returned to sender")["type"], "multipart/report");
    const std::string invitation = rawMessage(messageWithSubject("Invitation: Walk along Berth 4"));
    EXPECT_NE(invitation.find("text/calendar; charset=utf-8; method=REQUEST"), std::string::npos);
    const std::string flowed = rawMessage(messageWithSubject("The roof at Cable Street"));
    EXPECT_NE(flowed.find("format=flowed"), std::string::npos);
}

TEST_F(DemoMailboxTest, EachFaultIsReallyThere) {
    const std::map<std::string, std::string> faults = {{"wrong-charset", "F\xE4hrplan"},
                                                       {"raw-8bit-headers", "Subject: Liegepl\xE4tze"},
                                                       {"unknown-charset", "x-harbour-runes"},
                                                       {"nul-bytes", std::string("Pilot\0", 6)},
                                                       {"lone-carriage-returns", "line\rSecond"},
                                                       {"empty-subject", "\nSubject:\n"},
                                                       {"empty-from", "\nFrom:\n"}};
    for (const auto &[name, bytes] : faults)
        EXPECT_NE(rawMessage(messageOfCase(name)).find(bytes), std::string::npos) << name;
    for (const auto &[name, field] : std::map<std::string, std::string>{
             {"missing-date", "\nDate:"}, {"missing-from", "\nFrom:"}, {"missing-subject", "\nSubject:"}})
        EXPECT_EQ(rawMessage(messageOfCase(name)).find(field), std::string::npos) << name;
    for (const char *name : {"unterminated-boundary", "boundary-never-found", "no-boundary-parameter", "nonsense-date"})
        EXPECT_FALSE(messageOfCase(name)["defects"].empty()) << name;
}

TEST_F(DemoMailboxTest, ExtremeMessagesAreAsLargeAsTheirNamesSay) {
    EXPECT_GT(rawMessage(messageOfCase("html-5-megabytes")).size(), 5u * 1024 * 1024);
    EXPECT_GT(rawMessage(messageOfCase("text-200-kilobytes")).size(), 200u * 1024);
    EXPECT_EQ(messageOfCase("one-word")["texts"][0], "Granted.\n");
    const std::string tall = rawMessage(messageOfCase("million-pixels-tall"));
    const size_t top = tall.find("TOP OF THE"), middle = tall.find("MIDDLE OF THE"), end = tall.find("END OF THE");
    EXPECT_TRUE(top < middle && middle < end && end != std::string::npos);
}

TEST_F(DemoMailboxTest, NobodyAndNothingNamedLiesOutsideTheExampleDomain) {
    const std::regex address(R"([\w.+-]+@([\w.-]+\.\w+))");
    for (const json &message : s_messages) {
        std::smatch match;
        const std::string from = message["from"];
        if (std::regex_search(from, match, address)) {
            EXPECT_TRUE(match[1].str().ends_with(".example")) << from;
        }
    }
}

struct EncodedText {
    const char *text, *charset, *wire;
};

TEST(HeaderEncoding, WritesTheBytesOfTheStandards) {
    const EncodedText table[] = {
        {"Plain words", "UTF-8", "Plain words"},
        {"Grüße", "UTF-8", "=?UTF-8?B?R3LDvMOfZQ==?="},
        {"Grüße", "iso-8859-1", "=?iso-8859-1?B?R3L832U=?="},
    };
    for (const EncodedText &row : table)
        EXPECT_EQ(HeaderEncoding::text(row.text, row.charset), row.wire);
    EXPECT_EQ(HeaderEncoding::parameter("filename", "a\"b.txt"), ";\n filename=\"a\\\"b.txt\"");
    EXPECT_EQ(HeaderEncoding::parameter("filename", "ü.txt"), ";\n filename*0*=UTF-8''%C3%BC.txt");
    EXPECT_EQ(HeaderEncoding::date(now, -150), "Sun, 18 Oct 2026 09:40:00 -0230");
}
} // namespace

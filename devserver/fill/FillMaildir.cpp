#include "fill/FillMaildir.h"

#include "mime/TransferEncoding.h"
#include "maildir/MaildirTree.h"

#include <array>
#include <ctime>
#include <fstream>
#include <random>
#include <stdexcept>

namespace {

constexpr std::array people{"Marta Lindqvist <marta.lindqvist@nordfjord.example>",
                            "Ravi Chandra <ravi@chandra-partners.example>",
                            "\"Osei, Kwame\" <kwame.osei@harbourline.example>",
                            "=?utf-8?q?Zo=C3=AB_Brandt?= <zoe.brandt@atelier-brandt.example>",
                            "Build Service <builds@ci.corvanite.example>",
                            "Tomasz Wilk <t.wilk@wilk-druk.example>",
                            "Accounts <invoices@paperclip-supplies.example>",
                            "Ines Duarte <ines.duarte@quintadovale.example>"};
constexpr std::array topics{
    "Quarterly figures",        "Invoice",           "Minutes of the meeting",
    "Draft of the agreement",   "Build finished",    "Travel to Lisbon",
    "Printer on the 2nd floor", "Lunch on Thursday", "=?utf-8?q?Entwurf_f=C3=BCr_die_Brosch=C3=BCre?="};
constexpr std::array sentences{
    "I have put the latest numbers into the shared folder.",
    "Could you look at the second page before tomorrow noon?",
    "The delivery was confirmed for the end of the week.",
    "As far as I can see nothing else is missing.",
    "Please let me know whether the date suits everybody.",
    "The supplier asks for a written order.",
    "We agreed to postpone the change until the tests are through.",
    "Thank you for the quick answer.",
};

std::string withCRLF(const std::string &lines) {
    std::string out;
    out.reserve(lines.size() + lines.size() / 50);
    for (const char character : lines)
        out.append(character == '\n' ? "\r" : "").push_back(character);
    return out;
}

class MessageWriter {
public:
    explicit MessageWriter(std::time_t now)
        : m_now(now) {}

    std::string message(int number, std::time_t time) { return heading(number, time) + content(number); }

    /// With a file of this many bytes that no compression makes smaller.
    std::string messageWithFile(int number, std::time_t time, std::size_t size) {
        std::string bytes(size, '\0');
        for (auto &byte : bytes)
            byte = static_cast<char>(m_random() >> 8);
        return heading(number, time) + "Content-Type: multipart/mixed; boundary=\"mixed\"\r\n\r\n--mixed\r\n" +
               "Content-Type: text/plain\r\n\r\n" + prose() +
               "\r\n--mixed\r\nContent-Type: application/octet-stream; name=\"measurements.bin\"\r\n"
               "Content-Disposition: attachment; filename=\"measurements.bin\"\r\n"
               "Content-Transfer-Encoding: base64\r\n\r\n" +
               withCRLF(TransferEncoding::base64(bytes)) + "--mixed--\r\n";
    }

    /// Spread over two years, the later ones closer together.
    std::time_t timeOf(int number, int count) const {
        constexpr double twoYears = 2.0 * 365 * 24 * 3600;
        const double age = static_cast<double>(count - number) / count;
        return m_now - static_cast<std::time_t>(age * age * twoYears);
    }

private:
    std::string heading(int number, std::time_t time) {
        const auto subject = std::string(number % 4 == 0 ? "Re: " : "") + pick(topics) + " " + std::to_string(number);
        return "From: " + std::string(pick(people)) +
               "\r\nTo: Dana Okafor <dana@corvanite.example>\r\nSubject: " + subject + "\r\nDate: " + date(time) +
               "\r\nMessage-ID: <fill-" + std::to_string(number) + "@corvanite.example>\r\nMIME-Version: 1.0\r\n";
    }

    template <typename List> const char *pick(const List &list) { return list[m_random() % list.size()]; }

    static std::string date(std::time_t time) {
        char text[64];
        std::tm utc{};
        gmtime_r(&time, &utc);
        return {text, std::strftime(text, sizeof text, "%a, %d %b %Y %H:%M:%S +0000", &utc)};
    }

    std::string prose() {
        std::string text = "Hello Dana,\r\n\r\n";
        for (auto left = 3 + m_random() % 12; left > 0; --left)
            text += std::string(pick(sentences)) + (left % 4 == 0 ? "\r\n\r\n" : "\r\n");
        return text;
    }

    std::string content(int number) {
        if (number % 3 == 0)
            return "Content-Type: text/html; charset=utf-8\r\n\r\n<html><body><p>" + prose() + "</p></body></html>\r\n";
        if (number % 7 == 0)
            return "Content-Type: multipart/mixed; boundary=\"mixed\"\r\n\r\n--mixed\r\nContent-Type: "
                   "text/plain\r\n\r\n" +
                   prose() +
                   "\r\n--mixed\r\nContent-Type: text/csv; name=\"figures.csv\"\r\n"
                   "Content-Disposition: attachment; "
                   "filename=\"figures.csv\"\r\n\r\nmonth,sum\r\n1,200\r\n--mixed--\r\n";
        return "Content-Type: text/plain; charset=utf-8\r\n\r\n" + prose();
    }

    std::time_t m_now;
    std::minstd_rand m_random{20240229};
};

void writeFile(const std::filesystem::path &path, const std::string &bytes) {
    std::ofstream file(path, std::ios::binary);
    file << bytes;
    if (!file.flush())
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace

void fillMaildir(const FillOption &wish, std::chrono::system_clock::time_point now) {
    const auto &[messages, folder, attachment] = wish;
    MaildirTree::makeMaildir(folder);
    for (const char *name : {".Sent", ".Drafts", ".Trash", ".Junk", ".Archive"})
        MaildirTree::makeMaildir(folder / name);
    MessageWriter writer(std::chrono::system_clock::to_time_t(now));
    for (int number = 1; number <= messages; ++number) {
        const auto time = writer.timeOf(number, messages);
        const auto base = std::to_string(time) + ".F" + std::to_string(number) + ".corvanite";
        const bool isUnread = number % 10 == 0;
        const auto flags = std::string(number % 25 == 0 ? "F" : "") + (isUnread ? "" : "S");
        const auto size = number == messages ? static_cast<std::size_t>(attachment) << 20 : 0;
        writeFile(folder / "cur" / (base + ":2," + flags),
                  size > 0 ? writer.messageWithFile(number, time, size) : writer.message(number, time));
    }
}
